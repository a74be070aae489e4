#include <variant>

int Get(const std::variant<int, char>& either) { return std::get<int>(either); }
