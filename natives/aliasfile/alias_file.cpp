// Opens and closes alias table files.
#include "aliasfile/alias_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>

namespace kepotl {
namespace {

unsigned byte_at(const char* text, size_t index) {
  return static_cast<unsigned char>(text[index]);
}

// The ten bits of a surrogate half that starts at `text`; false when none of that kind stands
// there. `kind` is 0xA0 for a high half, 0xB0 for a low one.
bool read_half(const char* text, unsigned kind, unsigned* bits) {
  if (byte_at(text, 0) != 0xED || (byte_at(text, 1) & 0xF0) != kind) return false;
  *bits = (byte_at(text, 1) & 0x0F) << 6 | (byte_at(text, 2) & 0x3F);
  return true;
}

bool is_regular(const struct stat& status) {
  return S_ISREG(status.st_mode);
}

}  // namespace

std::string system_path(const char* modified_utf8) {
  std::string path;
  for (const char* at = modified_utf8; *at != '\0';) {
    unsigned high = 0;
    unsigned low = 0;
    if (read_half(at, 0xA0, &high) && read_half(at + 3, 0xB0, &low)) {
      const unsigned code = 0x10000 + (high << 10 | low);
      for (const unsigned byte : {0xF0 | code >> 18, 0x80 | (code >> 12 & 0x3F),
                                  0x80 | (code >> 6 & 0x3F), 0x80 | (code & 0x3F)}) {
        path += static_cast<char>(byte);
      }
      at += 6;
    } else {
      path += *at++;
    }
  }
  return path;
}

AliasFile open_alias_file(const char* modified_utf8_path, const char* mode) {
  const bool writes = *mode == 'w';
  // U+0000, which ends every name for the system.
  if (std::strstr(modified_utf8_path, "\xC0\x80") != nullptr) return nullptr;
  const std::string path = system_path(modified_utf8_path);
  // Asked before opening, as opening a device can change it, and after, as names can change hands.
  struct stat status;
  if (stat(path.c_str(), &status) == 0 ? !is_regular(status) : !writes) return nullptr;
  const int flags = writes ? O_WRONLY | O_CREAT : O_RDONLY;
  const int descriptor = open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, 0666);
  if (descriptor < 0) return nullptr;
  const bool usable = fstat(descriptor, &status) == 0 && is_regular(status) &&
                      (!writes || ftruncate(descriptor, 0) == 0);
  FILE* file = usable ? fdopen(descriptor, mode) : nullptr;
  if (file == nullptr) close(descriptor);
  return AliasFile(file);
}

bool close_written(AliasFile file) {
  const bool failed = std::ferror(file.get()) != 0;
  return std::fclose(file.release()) == 0 && !failed;
}

}  // namespace kepotl
