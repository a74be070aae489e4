#pragma once

#include <string>
#include <string_view>
#include <vector>

// Pure functions that redact secrets from log messages, because all users of the machine can read
// the log. Names of elements must be in lower case.
namespace tarn {

// Replaces a message that contains a token.
extern const char kTokenNotice[];

// Returns the names of the elements whose values are secret, in lower case and in search order.
const std::vector<std::string>& SecretElementNames();

// Returns whether the second part of a JSON web token begins anywhere in the message: ".eyJ" is "."
// and the base64url form of "{" and a quotation mark.
bool HoldsToken(std::string_view message);

// For each name in order, replaces the text between the first "<name>" and the first "</name>" with
// "****". The search ignores the case of the message and sees the replacements for earlier names.
// Empty elements, later elements of the same name and elements with attributes do not change. If
// the first closing tag precedes the first opening tag, the text between the tags appears twice in
// the result.
//
// Finds the positions in `message` and applies them to `masked`, which must be a copy of `message`.
void MaskElements(std::string_view message, const std::vector<std::string>& names,
                  std::string& masked);

// Returns false only if MaskElements() does not change the message. Does not search for closing
// tags.
bool HoldsOpeningTag(std::string_view message, const std::vector<std::string>& names);

// Returns the message as the log shows it: `message` itself, its masked form in `scratch`, or
// kTokenNotice.
std::string_view MaskSecrets(std::string_view message, const std::vector<std::string>& names,
                             std::string& scratch);

// Replaces the text between `openPos` + `openLen` and `closePos` with "****". Positions beyond the
// end count as the end. If `closePos` is the smaller position, the text between is duplicated.
void MaskBetween(std::string& text, std::size_t openPos, std::size_t closePos, std::size_t openLen);

}  // namespace tarn
