// Keeps thread-local storage right in multi-threaded 32-bit programs under qemu-user 7.2. The
// tree's etc/ld.so.preload loads it into every emulated program, and only there.
//
// On i386 a thread finds its storage through the segment register gs, which selects an entry of a
// descriptor table. The emulator has one global table (GDT) for all threads of a process where a
// kernel has one per thread, so that the entry belongs to the thread created last; and it reads gs
// anew when a signal handler returns. A thread that has handled a signal then works with another
// thread's storage. Java virtual machines handle signals all the time.
//
// The local table (LDT) may be shared: it has room for an entry per thread. Every thread gets one
// here, and uses the global table only while it creates a thread, because the C library requires
// that; one thread does so at a time, with signals blocked.
#define _GNU_SOURCE
#include <asm/ldt.h>
#include <dlfcn.h>
#include <pthread.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/syscall.h>
#include <unistd.h>

typedef int CreateThread(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);

typedef struct {
  void* (*routine)(void*);
  void* argument;
  sigset_t mask;  // of the creating thread
} Start;

enum { kSelectorGlobal = 3, kSelectorLocal = 7 };  // table and privilege bits of a selector

static pthread_mutex_t creation = PTHREAD_MUTEX_INITIALIZER;  // guards everything below
static unsigned bases[LDT_ENTRIES];  // base addresses of the entries in use, in order
static unsigned used;
static unsigned global_entry;

static unsigned own_base(void) {
  unsigned base;
  __asm__ volatile("movl %%gs:0, %0" : "=r"(base));
  return base;
}

static unsigned gs(void) {
  unsigned selector = 0;
  __asm__ volatile("movw %%gs, %w0" : "+r"(selector));
  return selector;
}

static void set_gs(unsigned selector) {
  __asm__ volatile("movw %w0, %%gs" : : "r"(selector) : "memory");
}

static struct user_desc descriptor(unsigned entry, unsigned base) {
  struct user_desc result = {0};
  result.entry_number = entry;
  result.base_addr = base;
  result.limit = 0xfffff;
  result.seg_32bit = 1;
  result.limit_in_pages = 1;
  result.useable = 1;
  return result;
}

static void require(int ok, const char* what) {
  if (!ok) {
    fprintf(stderr, "emulated_threads: %s failed\n", what);
    abort();
  }
}

// Entries are not given back: a base address that comes up again is a later thread's on the same
// stack, and its entry fits.
static void use_local_entry(void) {
  const unsigned base = own_base();
  unsigned entry = 0;
  while (entry < used && bases[entry] != base) ++entry;
  if (entry == used) {
    require(used < LDT_ENTRIES, "finding a free descriptor");
    struct user_desc local = descriptor(entry, base);
    require(syscall(SYS_modify_ldt, 1, &local, sizeof local) == 0, "modify_ldt");
    bases[used++] = base;
  }
  set_gs(entry << 3 | kSelectorLocal);
}

static void use_global_entry(void) {
  if (used == 0) {
    // The first thread, as the C library has set it up. The local table must exist before there
    // is a second one: the emulator tells a thread where it is when the thread starts.
    global_entry = gs() >> 3;
    use_local_entry();
  }
  struct user_desc global = descriptor(global_entry, own_base());
  require(syscall(SYS_set_thread_area, &global) == 0, "set_thread_area");
  set_gs(global_entry << 3 | kSelectorGlobal);
}

static void* run(void* argument) {
  const Start start = *(Start*)argument;
  free(argument);
  pthread_mutex_lock(&creation);
  use_local_entry();
  pthread_mutex_unlock(&creation);
  pthread_sigmask(SIG_SETMASK, &start.mask, NULL);
  return start.routine(start.argument);
}

int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*routine)(void*),
                   void* argument) {
  CreateThread* const create = (CreateThread*)dlsym(RTLD_NEXT, "pthread_create");
  Start* const start = malloc(sizeof *start);
  require(create != NULL && start != NULL, "preparing a thread");
  start->routine = routine;
  start->argument = argument;

  sigset_t all;
  sigfillset(&all);
  pthread_sigmask(SIG_SETMASK, &all, &start->mask);
  const sigset_t mask = start->mask;
  pthread_mutex_lock(&creation);
  use_global_entry();
  const int status = create(thread, attributes, run, start);
  use_local_entry();
  pthread_mutex_unlock(&creation);
  pthread_sigmask(SIG_SETMASK, &mask, NULL);
  if (status != 0) free(start);
  return status;
}
