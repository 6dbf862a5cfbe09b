// SHA-256, by which contents are told apart and checked.
#pragma once

#include <openssl/evp.h>

#include <memory>
#include <string>
#include <string_view>

namespace standin::postgresql {

class Digest {
 public:
  Digest();
  void add(std::string_view bytes);
  // The 32 bytes of the digest; ends it.
  std::string finish();

 private:
  std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> state_;
};

// Two hexadecimal digits a byte.
std::string hexadecimal(std::string_view bytes);

}  // namespace standin::postgresql
