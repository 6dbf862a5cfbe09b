// Reads one byte behind a block, so that a build with AddressSanitizer fails here or is none.
#include <cstdlib>

int main(int argc, char**) {
  const size_t size = 8;
  auto* block = static_cast<unsigned char*>(std::calloc(size, 1));
  const int read = block[size + static_cast<size_t>(argc) - 1];
  std::free(block);
  return read & 0;
}
