#pragma once

#include <string>

// What a log shows of a message, written down rule by rule, without regard to speed.
std::string MaskPlainly(const std::string& message);
