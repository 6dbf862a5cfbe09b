// A store with a small outline that has a bit of everything.
#pragma once

#include <gtest/gtest.h>

#include "tests/command/process.h"

namespace command_test {

// Children before parents, shared and repeated names, quotes, and a character beyond the basic
// plane.
inline constexpr char kWorld[] =
    "parent,name,alias,alias:French,uda,storage,category,attribute:Color,formula,repeat\n"
    "Countries,JP,Japan 🗾,Japon,big;asia,,,Red,,\n"
    "Geography,Countries,,,,,,,,\n"
    ",Geography,World,,,,,,,\n"
    "Countries,DE,Germany,Allemagne,\"x;\"\"a;b\"\"\",,,Blue,\"A+B, \"\"c\"\"\",\n"
    "Geography,Asia,,,,,,,,\n"
    "Asia,JP,,,,shared,,,,\n"
    "Asia,JP,,,,shared,,,,\n"
    "Asia,Twin,,,,,,,,yes\n"
    "Countries,Twin,,,,,,,,yes\n"
    "Geography/Asia/Twin,Below,,,,,,,,\n"
    ",Color,,,,,attribute,,,\n"
    "Color,Red,,,,,,,,\n"
    "Color,Blue,,,,,,,,\n";

class CommandTest : public testing::Test {
 protected:
  // Makes the database Demo World.
  void load_world() {
    ASSERT_EQ(run({"create", "Demo", "World"}).code, 0);
    const Ended loaded = run({"load", "Demo", "World", run.file("world.csv", kWorld)});
    ASSERT_EQ(loaded.code, 0) << loaded.err;
  }
  std::string out(const std::vector<std::string>& words) {
    const Ended ended = run(words);
    EXPECT_EQ(ended.code, 0) << ended.err;
    return ended.out;
  }

  CommandRun run;
};

}  // namespace command_test
