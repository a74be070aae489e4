// A wrapper is older than the compiler that builds it, which warns of some of its code. This
// function compares as -Wsign-compare forbids.
bool IsShorter(int length, unsigned limit) { return length < limit; }
