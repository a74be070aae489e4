// Stands in for the code of a wrapper that is older than its compiler: this function triggers
// -Wsign-compare.
bool IsShorter(int length, unsigned limit) { return length < limit; }
