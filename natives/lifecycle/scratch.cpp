// The scratch area of local outline files, without a virtual machine.
#include <cstdio>
#include <cstring>

#include "bridge/guards.h"
#include "lifecycle/stored_object.h"

using namespace kepotl;

char* getLocalPathCandidate(INST inst, HCTX local, char name[kScratchNameSize]) {
  if (name == nullptr) return name;
  name[0] = '\0';
  for (int counter = 0;; ++counter) {
    char candidate[kScratchNameSize];
    std::snprintf(candidate, sizeof candidate, "E%d", counter);
    if (counter == 0) {
      // The path itself is not needed: asking for it shows that there is a scratch area.
      ApiBlock<char> path(inst);
      const int status = path.take(OlvGetLocalPath, local, kObjectTypeOutline, kScratchApplication,
                                   kScratchDatabase, candidate, 1);
      if (status != kStatusOk) return name;
    }
    ApiBlock<ObjectInfoRecord> info(inst);
    const int status = info.take(OlvGetObjectInfo, local, kObjectTypeOutline, kScratchApplication,
                                 kScratchDatabase, candidate);
    // Whatever the failure, there is no such object.
    if (status != kStatusOk) {
      std::memcpy(name, candidate, std::strlen(candidate) + 1);
      return name;
    }
  }
}
