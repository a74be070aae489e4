#pragma once

#include <string>

// Returns the message as a log shows it, by a plain implementation of each rule without regard to
// speed.
std::string MaskPlainly(const std::string& message);
