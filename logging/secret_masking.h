#pragma once

#include <string>
#include <string_view>
#include <vector>

// What must not stand in a log that everyone on the machine can read. Nothing but the arguments
// decides.
namespace tarn {

// What a log shows of a message that holds a token.
extern const char kTokenNotice[];

// The names of the elements whose values are secret, in the order in which they are looked for. All
// are in lower case.
const std::vector<std::string>& SecretElementNames();

// Whether the second part of a JSON web token begins somewhere in the message: ".eyJ" is "." and
// the base64url form of "{" and a quotation mark.
bool HoldsToken(std::string_view message);

// For each of the names, in their order, puts "****" in the place of what stands between the first
// "<name>" and the first "</name>" of the text as it is then, whatever the case of the letters. An
// empty element stays as it is. Later ones of the same name keep their values, as do elements with
// attributes. Where the first closing tag stands before the first opening one, what lies between
// them is there twice afterwards.
//
// The places are found in `message` and used for `masked`, which is a copy of it.
void MaskElements(std::string_view message, const std::vector<std::string>& names,
                  std::string& masked);

// Whether MaskElements() could change the message; it does not where this is false. Does not look
// for closing tags.
bool HoldsOpeningTag(std::string_view message, const std::vector<std::string>& names);

// The message as the log shows it. It is `message` itself, or in `room`, or the notice.
std::string_view MaskSecrets(std::string_view message, const std::vector<std::string>& names,
                             std::string& room);

// Keeps the first `openPos` + `openLen` characters, puts "****" behind them, and then what there
// was from `closePos` to the end. Positions beyond the end are taken for the end.
void MaskBetween(std::string& text, std::size_t openPos, std::size_t closePos, std::size_t openLen);

}  // namespace tarn
