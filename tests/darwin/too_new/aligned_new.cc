struct alignas(64) Line {
  char bytes[64];
};

Line* Make() { return new Line; }
