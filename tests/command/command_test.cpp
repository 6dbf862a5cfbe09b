// The outline command in processes of its own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "tests/command/command_fixture.h"

namespace command_test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

TEST_F(CommandTest, LoadsRowsInAnyOrderAndPrintsTheTree) {
  load_world();
  EXPECT_EQ(out({"tree", "Demo", "World", "--aliases", "Default", "--aliases", "French"}),
            "Geography  World\n"
            "├─ Countries\n"
            "│  ├─ JP  Japan 🗾 · Japon\n"
            "│  ├─ DE  Germany · Allemagne\n"
            "│  └─ Twin\n"
            "└─ Asia\n"
            "   ├─ JP  (shared)\n"
            "   ├─ JP  (shared)\n"
            "   └─ Twin\n"
            "      └─ Below\n"
            "Color\n"
            "├─ Red\n"
            "└─ Blue\n");
  const std::string shown = out({"show", "Demo", "World", "DE"});
  EXPECT_THAT(shown, HasSubstr("Geography/Countries/DE"));
  EXPECT_THAT(shown, HasSubstr("x, a;b"));
  EXPECT_THAT(shown, HasSubstr("A+B, \"c\""));
  EXPECT_THAT(out({"list"}), HasSubstr("Demo World         13"));
  EXPECT_THAT(out({"info", "Demo", "World", "--json"}), HasSubstr("\"alias-tables\""));
}

TEST_F(CommandTest, ReportsEveryBadRowWithItsLineAndSavesNothing) {
  ASSERT_EQ(run({"create", "Demo", "World"}).code, 0);
  const std::string file = run.file("bad.csv",
                                    "parent;name;storage\n"
                                    ";Year;\n"
                                    "Lost;X;\n"
                                    "A;B;\n"
                                    "B;A;\n"
                                    "Year;Jan;upside-down\n"
                                    "Year;Feb;\n"
                                    "Year;feb;\n"
                                    "Year;" +
                                        std::string(81, 'm') + ";\n");
  const Ended refused = run({"load", "Demo", "World", file});
  EXPECT_EQ(refused.code, 3);
  for (const char* part : {":3: there is no parent 'Lost'", ":4: 'B' lies below itself",
                           ":5: 'A' lies below itself", ":6: storage can't be 'upside-down'",
                           ":8: there is a 'feb' already", ":9: the name", "81 bytes"}) {
    EXPECT_THAT(refused.err, HasSubstr(part));
  }
  EXPECT_THAT(out({"tree", "Demo", "World"}), IsEmpty());

  const std::string rejects = run.folder() + "/rejects.csv";
  EXPECT_EQ(run({"load", "Demo", "World", file, "--keep-going", "--rejects", rejects}).code, 1);
  EXPECT_EQ(out({"tree", "Demo", "World"}), "Year\n└─ Feb\n");
  EXPECT_THAT(run.shell("cat rejects.csv").out, HasSubstr("Year,Jan,upside-down\n"));

  EXPECT_THAT(run({"load", "Demo", "World", "-"}, "parent,name\nYear,\xff\n").err,
              HasSubstr("stdin:2: the text"));
  EXPECT_THAT(run({"load", "Demo", "World", "-"}, "parent,nmae\n").err, HasSubstr("name"));
  EXPECT_THAT(run({"load", "Demo", "World", "-"}, "{\"name\":\n").err, HasSubstr("stdin:1:"));
}

TEST_F(CommandTest, UpdatesAndReplaces) {
  load_world();
  EXPECT_THAT(run({"load", "Demo", "World", "-"}, "parent,name\nGeography,Countries\n").err,
              HasSubstr("--mode update"));
  // A and B change places: neither can move first.
  ASSERT_EQ(run({"load", "Demo", "World", "-", "--mode", "update"},
                "parent,name,alias\nGeography,DE,\nDE,Countries,Lands\n")
                .code,
            0);
  EXPECT_THAT(out({"tree", "Demo", "World", "--aliases", "Default"}),
              HasSubstr("DE  Germany\n   └─ Countries  Lands\n"));
  const std::string plan = "parent,name\n,Geography\nGeography,JP\nGeography,Asia\n";
  EXPECT_THAT(run({"load", "Demo", "World", "-", "--mode", "replace"}, plan).err,
              HasSubstr("would be removed"));
  ASSERT_EQ(run({"load", "Demo", "World", "-", "--mode", "replace", "--yes"}, plan).code, 0);
  EXPECT_EQ(out({"tree", "Demo", "World", "--aliases", "French"}),
            "Geography\n├─ JP  Japon\n└─ Asia\n");
}

// Shared members, and children, that come before the member itself.
TEST_F(CommandTest, PlacesChildrenBelowTheMemberItself) {
  ASSERT_EQ(run({"create", "Demo", "World"}).code, 0);
  const Ended loaded = run({"load", "Demo", "World", "-"},
                           "parent,name,storage\nOnce,C1,\n,Top,\nTop,Once,shared\nTwice,C2,\n"
                           "Top,Twice,shared\nTop,Twice,shared\nOnce,C3,\nTwice,C4,\n"
                           ",Base,\nBase,Twice,\nBase,Once,\nOnce,C5,\n");
  EXPECT_EQ(loaded.code, 0) << loaded.err;
  EXPECT_THAT(out({"tree", "Demo", "World", "--member", "Base"}),
              "Base\n├─ Twice\n│  ├─ C2\n│  └─ C4\n└─ Once\n   ├─ C1\n   ├─ C3\n   └─ C5\n");
}

TEST_F(CommandTest, LoadsLevels) {
  ASSERT_EQ(run({"create", "Demo", "World"}).code, 0);
  ASSERT_EQ(run({"load", "Demo", "World", "-"},
                "Region\tCountry\tCity\nEurope\tFrance\tParis\nEurope\tFrance\tLyon\nAsia\t\t\n")
                .code,
            0);
  EXPECT_EQ(out({"export", "Demo", "World", "--format", "levels"}),
            "Level 1,Level 2,Level 3\nEurope,France,Paris\nEurope,France,Lyon\nAsia,,\n");
}

TEST_F(CommandTest, ExportsWhatItLoads) {
  load_world();
  for (const char* file : {"all.csv", "all.jsonl"}) {
    ASSERT_EQ(run({"export", "Demo", "World", file}).code, 0);
    EXPECT_EQ(run({"diff", "Demo", "World", file}).code, 0) << file;
  }
  EXPECT_EQ(out({"export", "Demo", "World", "--member", "Countries", "--columns", "alias"}),
            "parent,name,alias\n"
            "Geography,Countries,\nCountries,JP,Japan 🗾\nCountries,DE,Germany\nCountries,Twin,\n");
}

TEST_F(CommandTest, EditsAllOrNothing) {
  load_world();
  EXPECT_EQ(run({"add", "Demo", "World", "NZ", "--below", "Countries", "--first", "--set",
                 "alias=New Zealand", "uda=island"})
                .code,
            0);
  EXPECT_EQ(run({"rename", "Demo", "World", "NZ", "NZL"}).code, 0);
  EXPECT_EQ(run({"copy", "Demo", "World", "NZL", "NZ2", "--below", "Asia"}).code, 0);
  EXPECT_EQ(run({"set", "Demo", "World", "Geography/Asia/JP#2", "comment=again"}).code, 0);
  EXPECT_EQ(run({"move", "Demo", "World", "DE", "--below", "Asia"}).code, 0);
  EXPECT_EQ(run({"delete", "Demo", "World", "DE"}).code, 0);
  EXPECT_EQ(run({"sort", "Demo", "World", "Countries", "--descending"}).code, 0);
  EXPECT_THAT(out({"tree", "Demo", "World", "--aliases", "Default"}),
              HasSubstr("├─ Countries\n│  ├─ Twin\n│  ├─ NZL  New Zealand\n│  └─ JP"));
  const Ended refused = run({"apply", "Demo", "World", "-"},
                            "# a comment\nrename NZL \"New Zealand\"\n\nmove Twin --below Color\n");
  EXPECT_EQ(refused.code, 3);
  EXPECT_THAT(refused.err, HasSubstr("stdin:4: 2 members are called 'Twin'"));
  EXPECT_THAT(refused.err, HasSubstr("Geography/Asia/Twin"));
  EXPECT_THAT(out({"find", "Demo", "World", "NZ*"}), StartsWith("NZL\n"));
  EXPECT_THAT(run({"apply", "Demo", "World", "-"}, "mvoe A B\n").err, HasSubstr("'move'"));
  EXPECT_EQ(run({"apply", "Demo", "World", "-"},
                "generation Geography 2 Part\ntable German\nalias JP German Japan\n"
                "uda JP --remove big\nformula JP \"1 + 2\"\n")
                .code,
            0);
  EXPECT_THAT(out({"show", "Demo", "World", "JP"}), HasSubstr("1 + 2"));
}

TEST_F(CommandTest, DiffsAndTurnsOneIntoTheOther) {
  load_world();
  ASSERT_EQ(run({"save-as", "Demo", "World", "Demo", "Other"}).code, 0);
  EXPECT_EQ(run({"diff", "Demo", "World", "Demo", "Other"}).code, 0);
  ASSERT_EQ(run({"apply", "Demo", "Other", "-"},
                "rename DE GER\nmove Color --first\nset JP two-pass=yes alias:French=\n"
                "move Geography/Countries/Twin --below Geography --first\nadd Year\n"
                "set Year category=time\nadd Q1 --below Year\nseries Y-T-D 1\n"
                "delete Geography/Asia/JP\n")
                .code,
            0);
  const Ended differs = run({"diff", "Demo", "World", "Demo", "Other"});
  EXPECT_EQ(differs.code, 1);
  for (const char* part :
       {"renamed   Geography/Countries/GER  was DE", "added     Year", "JP  two-pass: no -> yes",
        "JP  alias:French: Japon -> (nothing)", "removed   Geography/Asia/JP#2"}) {
    EXPECT_THAT(differs.out, HasSubstr(part));
  }
  EXPECT_EQ(run.shell("$outline diff Demo World Demo Other --as-edits >edits.txt").code, 1);
  EXPECT_EQ(run({"apply", "Demo", "World", "edits.txt"}).code, 0);
  const Ended equal = run({"diff", "Demo", "World", "Demo", "Other"});
  EXPECT_EQ(equal.code, 0) << equal.out;
}

TEST_F(CommandTest, FindsVerifiesAndKeepsAliasTables) {
  load_world();
  EXPECT_EQ(out({"find", "Demo", "World", "japan", "--path"}),
            "Geography/Countries/JP  Default: Japan 🗾\n");
  EXPECT_EQ(out({"find", "Demo", "World", "BIG", "--uda", "--limit", "1"}), "JP  uda: big\n");
  EXPECT_THAT(out({"find", "Demo", "World", "BIG", "--uda", "--case"}), IsEmpty());
  const Ended verified = run({"verify", "Demo", "World"});
  EXPECT_EQ(verified.code, 1);
  EXPECT_THAT(verified.out, HasSubstr("Geography/Asia/JP#2 has the same name"));
  ASSERT_EQ(run({"aliases", "export", "Demo", "World", "French", "french.txt"}).code, 0);
  EXPECT_EQ(run.shell("cat french.txt").out,
            "$ALT_NAME  'French'\n\"JP\"   \"Japon\"\n\"DE\"   \"Allemagne\"\n$END\n");
  EXPECT_EQ(run({"aliases", "import", "Demo", "World", "french.txt"}).code, 3);
  run.file("more.txt", "$ALT_NAME  'Klingon'\n\"DE\"   \"Doych\"\n\"XX\"   \"none\"\n$END\n");
  const Ended imported = run({"aliases", "import", "Demo", "World", "more.txt"});
  EXPECT_EQ(imported.code, 1);
  EXPECT_THAT(imported.err, HasSubstr("more.txt:3: there is no member 'XX'"));
  EXPECT_THAT(out({"aliases", "list", "Demo", "World"}), HasSubstr("Klingon  1 aliases"));
  EXPECT_EQ(run({"aliases", "delete", "Demo", "World", "Klingon"}).code, 3);
  EXPECT_EQ(run({"aliases", "delete", "Demo", "World", "Klingon", "--yes"}).code, 0);
}

TEST_F(CommandTest, BacksUpRestoresAndUnlocks) {
  load_world();
  ASSERT_EQ(run({"backup", "Demo", "World", "world.otl"}).code, 0);
  ASSERT_EQ(run({"delete", "Demo", "World", "Geography"}).code, 0);
  EXPECT_EQ(run({"restore", run.file("junk.otl", "junk"), "Demo", "World", "--yes"}).code, 3);
  EXPECT_EQ(run({"restore", "world.otl", "Demo", "World"}).code, 3);  // asks, nobody answers
  ASSERT_EQ(run({"restore", "world.otl", "Demo", "World", "--yes"}).code, 0);
  EXPECT_THAT(out({"tree", "Demo", "World"}), StartsWith("Geography"));
  EXPECT_EQ(run({"restore", "junk.otl", "Demo", "New"}).code, 3);
  EXPECT_THAT(out({"list"}), Not(HasSubstr("New")));
  EXPECT_EQ(run({"restructure", "Demo", "World"}).code, 0);
  // A load that waits for its input holds the lock meanwhile.
  const Ended locked = run.shell(
      "mkfifo rows; $outline load Demo World rows & exec 3>rows\n"
      "for i in $(seq 100); do $outline locks --json | grep -q Demo/World && break; sleep 0.1; "
      "done\n"
      "$outline list; $outline unlock Demo World --yes; printf 'parent,name\\n,X\\n' >&3; exec "
      "3>&-\n"
      "wait");
  EXPECT_THAT(locked.out, HasSubstr("edits since"));
  EXPECT_THAT(locked.err, HasSubstr("Demo World is free"));
  EXPECT_THAT(out({"tree", "Demo", "World"}), Not(HasSubstr("X")));
  EXPECT_EQ(run({"delete-database", "Demo", "World", "--yes"}).code, 0);
  EXPECT_THAT(out({"list"}), IsEmpty());
}

TEST_F(CommandTest, TellsMisuseFromFailure) {
  EXPECT_THAT(run({"lod"}).err, HasSubstr("did you mean 'load'?"));
  EXPECT_EQ(run({"lod"}).code, 2);
  EXPECT_EQ(run({}).code, 2);
  EXPECT_THAT(run({"tree", "A", "B", "--dept", "1"}).err, HasSubstr("'--depth'"));
  EXPECT_THAT(run({"tree", "A", "B", "--depth", "-1"}).err, HasSubstr("'-1' is no number"));
  EXPECT_THAT(run({"--quiet", "aliases", "lits", "A", "B"}).err, HasSubstr("'aliases lits'; did"));
  EXPECT_EQ(run({"tree", "A", "B"}).code, 3);  // no store
  load_world();
  EXPECT_THAT(run({"info", "Demo", "Wrld"}).err, HasSubstr("'Demo World'"));
  EXPECT_THAT(run({"show", "Demo", "World", "Geograhpy"}).err, HasSubstr("'Geography'"));
  EXPECT_THAT(out({"help", "load"}), HasSubstr("--mode"));
  EXPECT_THAT(out({"--version"}), HasSubstr("outline 1."));
}

TEST_F(CommandTest, CopiesAWholeStoreAndBack) {
  load_world();
  const std::string other = run.folder() + "/other";
  const std::string tree = out({"tree", "Demo", "World"});
  EXPECT_THAT(run({"list", "--store", other}).err, HasSubstr("there is no store"));
  EXPECT_THAT(run({"store", "copy", run.store(), other}).err,
              HasSubstr("copied Demo World: 13 members"));
  EXPECT_EQ(out({"tree", "Demo", "World", "--store", other}), tree);
  EXPECT_EQ(out({"--store", other, "tree", "Demo", "World"}), tree);
  ASSERT_EQ(run({"rename", "Demo", "World", "DE", "Deutschland", "--store", other}).code, 0);
  EXPECT_EQ(out({"tree", "Demo", "World"}), tree);
  EXPECT_EQ(run({"store", "copy", other, run.store()}).code, 3) << "nobody was there to ask";
  EXPECT_EQ(out({"tree", "Demo", "World"}), tree);
  ASSERT_EQ(run({"store", "copy", other, run.store(), "--yes"}).code, 0);
  EXPECT_THAT(out({"tree", "Demo", "World"}), HasSubstr("Deutschland"));
  ASSERT_EQ(run({"store", "init"}).code, 0) << "what is there stays";
  EXPECT_THAT(out({"list"}), HasSubstr("Demo World         13"));
}

TEST_F(CommandTest, ShowsNoPassword) {
  for (const char* address : {"postgresql://anna:s3cret@[::1]:1/x",
                              "postgresql:///x?host=/nowhere&password=s3cret&user=anna"}) {
    const Ended failed = run({"list", "--store", address});
    EXPECT_EQ(failed.code, 3);
    EXPECT_THAT(failed.err, HasSubstr("does not answer"));
    EXPECT_THAT(failed.err, Not(HasSubstr("s3cret")));
  }
}

// Every tree of a chain goes without recursion, and none grows with the square of the depth.
TEST_F(CommandTest, DrawsAPictureOfAnySize) {
  load_world();
  const std::string file = run.folder() + "/world.svg";
  const auto picture = [&](const std::vector<std::string>& options) {
    std::vector<std::string> words = {"picture", "Demo", "World", file};
    words.insert(words.end(), options.begin(), options.end());
    EXPECT_EQ(out(words), "");
    return run.shell("cat " + file).out;
  };
  std::string page = picture({"--colour", "uda"});
  EXPECT_THAT(page, HasSubstr("<title>Geography\n10 members</title>"));
  EXPECT_THAT(page, HasSubstr(">no UDA</text>"));
  EXPECT_THAT(page, HasSubstr(">big</text>"));
  page = picture({"--member", "Countries", "--width", "leaves"});
  EXPECT_THAT(page, HasSubstr("<title>Countries\n4 members, 3 leaves</title>"));
  EXPECT_THAT(page, Not(HasSubstr("Asia\n")));

  // Members that are too small to be seen are merged; none is lost from the counts.
  std::string rows = "parent,name\n,Flat\n";
  for (int i = 0; i < 30'000; ++i) rows += "Flat,a <name> & number " + std::to_string(i) + "\n";
  ASSERT_EQ(run({"load", "Demo", "World", run.file("flat.csv", rows)}).code, 0);
  page = picture({});
  EXPECT_THAT(page, HasSubstr("<title>Flat\n30,001 members</title>"));
  EXPECT_THAT(page, HasSubstr("a &lt;name&gt; &amp; number 0 \u2026 a &lt;name&gt;"));
  EXPECT_LT(page.size(), 2'000'000U);
  EXPECT_THAT(run({"picture", "Demo", "World", "world.png"}).err, HasSubstr(".svg or .html"));
}

TEST_F(CommandTest, CompletesAndDescribesItself) {
  const auto complete = [&](const std::string& words) {
    return run
        .shell("$outline completion bash >completion; bash -c '. ./completion; COMP_WORDS=(" +
               words + "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _outline; echo ${COMPREPLY[*]}'")
        .out;
  };
  EXPECT_EQ(complete("outline re"), "rename restructure restore\n");
  EXPECT_EQ(complete("outline picture Demo World x.svg --w"), "--width\n");
  EXPECT_EQ(complete("outline picture --width l"), "leaves\n");
  EXPECT_EQ(complete("outline aliases ex"), "export\n");
  EXPECT_THAT(out({"completion", "zsh"}), StartsWith("#compdef outline\n"));
  EXPECT_THAT(out({"manual", "/dev/stdout"}), HasSubstr("\n.SS outline load\n"));
}

TEST_F(CommandTest, BearsAChainOfAHundredThousand) {
  ASSERT_EQ(run({"create", "Demo", "Deep"}).code, 0);
  std::string rows;
  for (int i = 99'999; i > 0; --i) {
    rows += "m" + std::to_string(i - 1) + ",m" + std::to_string(i) + "\n";
  }
  ASSERT_EQ(run({"load", "Demo", "Deep", "-"}, "parent,name\n" + rows + ",m0\n").code, 0);
  EXPECT_THAT(out({"tree", "Demo", "Deep"}), HasSubstr("└─ m99999\n"));
  EXPECT_EQ(run.shell("$outline tree Demo Deep --json | tail -c 4").out, "}\n]\n");
  ASSERT_EQ(run({"export", "Demo", "Deep", "deep.csv"}).code, 0);
  EXPECT_EQ(run({"diff", "Demo", "Deep", "deep.csv"}).code, 0);
}

TEST_F(CommandTest, DerivesTheCurrencyOutline) {
  ASSERT_EQ(run({"create", "Demo", "World"}).code, 0);
  ASSERT_EQ(run({"load", "Demo", "World", "-"},
                "parent,name,category,currency\n,Year,time,\nYear,Jan,,\n,Market,country,\n"
                "Market,Japan,,JPY\n,Measures,accounts,\nMeasures,Sales,,Plan rate\n")
                .code,
            0);
  EXPECT_EQ(run({"currency", "Demo", "World", "Demo", "Rates"}).code, 0);
  EXPECT_EQ(out({"tree", "Demo", "Rates"}),
            "Year\n└─ Jan\nMarket\n└─ Japan\nCurrency Category\n└─ Plan rate\nCurrency Type\n");
  // What is there is replaced only after a question.
  const Ended again = run({"currency", "Demo", "World", "Demo", "Rates"});
  EXPECT_EQ(again.code, 3);
  EXPECT_THAT(again.err, HasSubstr("The outline of Demo Rates would be replaced"));
  EXPECT_EQ(run({"create", "Demo", "Bare"}).code, 0);
  EXPECT_EQ(run({"currency", "Demo", "Bare", "Demo", "None"}).code, 3);
  EXPECT_THAT(out({"list"}), Not(HasSubstr("None")));
}

// When all tests have run, so has every subcommand of the help.
class EverySubcommandIsTested : public testing::Environment {
 public:
  void TearDown() override {
    if (GTEST_FLAG_GET(filter) != "*") return;
    std::istringstream help(CommandRun().shell("$outline help").out);
    std::string line;
    while (line != "Subcommands:" && std::getline(help, line)) continue;
    size_t count = 0;
    while (std::getline(help, line)) {
      const size_t begin = line.find_first_not_of(' ');
      if (begin != 2) continue;  // a description that goes on
      const std::string name = line.substr(begin, line.find(' ', begin) - begin);
      ++count;
      EXPECT_EQ(CommandRun::tried().count(name), 1U) << "no test runs outline " << name;
    }
    EXPECT_GT(count, 20U);
  }
};
const auto* const kEverySubcommand =
    testing::AddGlobalTestEnvironment(new EverySubcommandIsTested);  // owned by GoogleTest

}  // namespace
}  // namespace command_test
