// Overflows a signed number, so that a build with UndefinedBehaviorSanitizer fails here or is none.
#include <climits>
#include <cstdlib>

int main(int argc, char**) {
  volatile int largest = INT_MAX;
  volatile int sum = largest + argc;
  (void)sum;
  return EXIT_SUCCESS;
}
