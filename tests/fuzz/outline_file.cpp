// The reader of outline files. With FUZZ_SEED it writes an outline with everything in it to that
// file first, as something to begin with.
#include <unistd.h>

#include <cstdio>

#include "standin/guard.h"
#include "standin/outline/file/stored_outline.h"
#include "tests/fuzz/input.h"

namespace {

void write_seed(const char* path) {
  standin::Outline outline;
  const standin::MemberId product = outline.append(standin::kRoot, "Product");
  for (int i = 0; i < 20; ++i) {
    const standin::MemberId member = outline.append(product, "p" + std::to_string(i));
    outline.set_text(member, standin::TextKind::kFormula, "1 + 2");
    outline.add_uda(member, "new");
    outline.set_alias(0, member, "Product " + std::to_string(i));
  }
  std::fclose(std::fopen(path, "wbe"));
  standin::write_outline(outline, path);
}

// A file that goes with the process, one that ends by a fault aside.
class InputFile {
 public:
  InputFile() : number_(mkstemp(name_)) { fuzz::demand(number_ >= 0); }
  ~InputFile() {
    unlink(name_);
    close(number_);
  }
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  const char* name() const { return name_; }
  void fill(const uint8_t* data, size_t size) const {
    fuzz::demand(ftruncate(number_, 0) == 0);
    fuzz::demand(pwrite(number_, data, size, 0) == static_cast<ssize_t>(size));
  }

 private:
  char name_[32] = "/tmp/fuzz-outline-XXXXXX";
  int number_;
};

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  if (const char* path = std::getenv("FUZZ_SEED")) write_seed(path);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const InputFile kFile;
  kFile.fill(data, size);
  standin::Outline outline;
  const int status = standin::load_outline(kFile.name(), &outline);
  fuzz::demand(status == 0 || status == standin::kDamagedOutline ||
               status == standin::kNewerOutline);
  return 0;
}
