// SHA-256 from OpenSSL, which libpq brings along.
#include "standin/postgresql/digest.h"

#include "standin/guard.h"

namespace standin::postgresql {
namespace {

void require_done(int done) {
  if (done != 1) throw StoreFailure(kStoreError);
}

}  // namespace

Digest::Digest() : state_(EVP_MD_CTX_new(), EVP_MD_CTX_free) {
  if (state_ == nullptr) throw std::bad_alloc();
  require_done(EVP_DigestInit_ex(state_.get(), EVP_sha256(), nullptr));
}

void Digest::add(std::string_view bytes) {
  require_done(EVP_DigestUpdate(state_.get(), bytes.data(), bytes.size()));
}

std::string Digest::finish() {
  unsigned char bytes[EVP_MAX_MD_SIZE];
  unsigned size = 0;
  require_done(EVP_DigestFinal_ex(state_.get(), bytes, &size));
  return {reinterpret_cast<const char*>(bytes), size};
}

std::string hexadecimal(std::string_view bytes) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

}  // namespace standin::postgresql
