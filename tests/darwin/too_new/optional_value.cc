#include <optional>

int Get(const std::optional<int>& number) { return number.value(); }
