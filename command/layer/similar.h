// "Did you mean": the words nearest to one that is not known.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace command {

// Collects the words that differ least from `word`: by at most a third of its length.
class Similar {
 public:
  explicit Similar(std::string_view word);
  void offer(std::string_view candidate);
  // "; did you mean 'load'?", or nothing.
  std::string sentence() const;

 private:
  std::string word_;
  size_t best_;
  std::vector<std::string> nearest_;
};

}  // namespace command
