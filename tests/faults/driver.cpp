// One step on a store, for a run in which the system fails or kills it: "save FOLDER VERSION" and
// "restructure FOLDER" print the status that they end with, "check FOLDER LEAST MOST" fails unless
// the outline is whole, of one of these versions, and free to be edited. The version stands in the
// formula of every member.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "api/olv.h"
#include "api/olvotl.h"
#include "standin/session.h"
#include "standin/status.h"

namespace {

constexpr int kMembers = 300;

// Ends the step with the first status that is not 0.
void require(int status) {
  if (status == kStatusOk) return;
  std::printf("%d %s\n", status, OlvStandinStatusText(status));
  std::exit(1);
}

int number(const char* text) {
  return static_cast<int>(std::strtol(text, nullptr, 10));
}

class Step {
 public:
  explicit Step(const char* folder) {
    require(OlvStandinInitialize(folder, &instance_));
    require(OlvStandinLogin(instance_, "driver", &context_));
    const int made = OlvStandinCreateDatabase(context_, "Sample", "Basic");
    if (made != standin::kDatabaseExists) require(made);
    uint16_t access = 0;
    require(OlvSetActive(context_, "Sample", "Basic", &access));
  }

  void open() {
    const ObjectDefinitionRecord basic = object();
    require(OlvOtlOpenOutline(context_, &basic, 1, 1, &outline_));
  }

  void save(const char* version) {
    open();
    HMember dimension = 0;
    require(OlvOtlGetFirstMember(outline_, &dimension));
    if (dimension == 0) dimension = add(0, "Versions");
    HMember member = 0;
    require(OlvOtlGetChild(outline_, dimension, &member));
    for (int i = 0; member == 0 && i < kMembers; ++i) add(dimension, "m" + std::to_string(i));
    require(OlvOtlGetChild(outline_, dimension, &member));
    for (; member != 0; require(OlvOtlGetNextSibling(outline_, member, &member))) {
      require(OlvOtlSetMemberFormula(outline_, member, version));
    }
    const ObjectDefinitionRecord basic = object();
    require(OlvOtlWriteOutline(outline_, &basic));
  }

  void restructure() {
    require(OlvOtlRestructure(context_, kRestructureSaveAs));
    ProcessStateRecord state{};
    do {
      require(OlvGetProcessState(context_, &state));
    } while (state.state != 0);
  }

  bool is_whole(int least, int most) {
    open();
    HMember member = 0;
    require(OlvOtlGetFirstMember(outline_, &member));
    require(OlvOtlGetChild(outline_, member, &member));
    int count = 0;
    int version = -1;
    for (; member != 0; require(OlvOtlGetNextSibling(outline_, member, &member)), ++count) {
      char* formula = nullptr;
      require(OlvOtlGetMemberFormula(outline_, member, &formula));
      const int own = formula == nullptr ? -1 : number(formula);
      require(OlvFree(instance_, formula));
      if (count == 0) version = own;
      if (own != version) return false;
    }
    return count == kMembers && least <= version && version <= most;
  }

  // Not by the destructor: a step that failed is to leave what it has, as a killed one does.
  void end() { require(OlvStandinTerminate(instance_)); }

 private:
  ObjectDefinitionRecord object() const {
    return {context_, kObjectTypeOutline, "Sample", "Basic", "Basic"};
  }
  HMember add(HMember parent, const std::string& name) {
    MemberInfoRecord info{};
    name.copy(info.name, kMaxMemberName);
    HMember added = 0;
    require(parent == 0 ? OlvOtlAddDimension(outline_, &info, 0, 0, &added)
                        : OlvOtlAddMemberEx(outline_, &info, parent, 0, &added, kMemberOption));
    return added;
  }

  INST instance_ = 0;
  HCTX context_ = 0;
  HOutline outline_ = 0;
};

}  // namespace

int main(int count, char** words) {
  const std::string name = count > 2 ? words[1] : "";
  if (name == "save" && count == 4) {
    Step step(words[2]);
    step.save(words[3]);
    step.end();
  } else if (name == "restructure" && count == 3) {
    Step step(words[2]);
    step.restructure();
    step.end();
  } else if (name == "check" && count == 5) {
    Step step(words[2]);
    if (!step.is_whole(number(words[3]), number(words[4]))) {
      std::puts("the outline is not one of the versions that were written");
      return 1;
    }
    step.end();
  } else {
    std::fputs(
        "usage: fault_driver save FOLDER VERSION | restructure FOLDER | check FOLDER LEAST MOST\n",
        stderr);
    return 2;
  }
  std::puts("0");
  return 0;
}
