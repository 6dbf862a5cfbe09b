package com.olvane.kep.olvane.bench;

import com.olvane.kep.olvane.api.OutlineHandle;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NewMember;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Page;
import com.olvane.kep.olvane.outline.Place;
import com.olvane.kep.olvane.outline.Store;
import com.olvane.kep.olvane.standin.StandinSession;
import java.io.BufferedReader;
import java.io.IOException;
import java.io.InputStreamReader;
import java.lang.management.ManagementFactory;
import java.lang.management.ThreadMXBean;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Comparator;
import java.util.Iterator;
import java.util.List;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/**
 * The facade beside the native methods in one process, on the embedded engine: listing children,
 * building, the first page of a fresh virtual machine, and what a kept member takes.
 */
public final class FacadeBench {
  private static final String PRODUCT = "Product";
  private static final ThreadMXBean THREADS = ManagementFactory.getThreadMXBean();

  private final List<Integer> sizes;
  private final int turns;

  private FacadeBench(List<Integer> sizes, int turns) {
    this.sizes = sizes;
    this.turns = turns;
  }

  /**
   * Runs the benchmark.
   *
   * @param arguments {@code --quick}, {@code --smoke} and {@code --turns=N}, or {@code
   *     --first-page STORE} for the process that is timed
   * @throws IOException if no folder can be made for the store
   * @throws InterruptedException if this process is interrupted
   */
  public static void main(String[] arguments) throws IOException, InterruptedException {
    if (arguments.length == 2 && arguments[0].equals("--first-page")) {
      firstPage(arguments[1]);
      return;
    }
    List<Integer> sizes = Arrays.asList(1_000, 10_000, 100_000, 1_000_000);
    int turns = 9;
    for (String argument : arguments) {
      if (argument.equals("--quick")) {
        sizes = sizes.subList(0, 2);
      } else if (argument.equals("--smoke")) {
        sizes = sizes.subList(0, 1);
        turns = 1;
      } else if (argument.startsWith("--turns=")) {
        turns = Integer.parseInt(argument.substring("--turns=".length()));
      } else {
        System.err.println("bench_facade: unknown option '" + argument + "'");
        System.exit(2);
      }
    }
    new FacadeBench(sizes, turns).run();
  }

  /** One way to do a piece of work. */
  private interface Way {
    Object run();
  }

  /**
   * Nanoseconds of this thread's processor time of ways side by side: the medians of all turns.
   * Collecting garbage is others' time.
   */
  private double[] measure(int size, Way... ways) {
    int rounds = size >= 1_000_000 ? (turns + 1) / 2 : turns;
    double[][] nanoseconds = new double[ways.length][rounds];
    // What is short is warmed up, so that compiled code is compared.
    for (int turn = rounds == 1 || size >= 100_000 ? 0 : -200_000 / size; turn < rounds; turn++) {
      for (int way = 0; way < ways.length; way++) {
        if (turn >= 0 && size >= 100_000) {
          System.gc();
        }
        long start = THREADS.getCurrentThreadCpuTime();
        Object result = ways[way].run();
        long end = THREADS.getCurrentThreadCpuTime();
        if (result == null) {
          throw new AssertionError();
        }
        if (turn >= 0) {
          nanoseconds[way][turn] = (double) (end - start) / size;
        }
      }
    }
    double[] medians = new double[ways.length];
    for (int way = 0; way < ways.length; way++) {
      Arrays.sort(nanoseconds[way]);
      medians[way] = nanoseconds[way][rounds / 2];
    }
    return medians;
  }

  private static Iterable<NewMember> members(String prefix, int count) {
    return () -> new Iterator<NewMember>() {
      private int next;

      @Override
      public boolean hasNext() {
        return next < count;
      }

      @Override
      public NewMember next() {
        return new NewMember(prefix + next++);
      }
    };
  }

  private void run() throws IOException, InterruptedException {
    System.out.printf("The facade beside the native methods%n%s %s, %s, %d turns%n%n",
        System.getProperty("java.vm.name"), System.getProperty("java.version"),
        System.getProperty("os.arch"), turns);
    Path folder = Files.createTempDirectory("bench");
    try (Store store = Store.open(folder.toString(), "bench")) {
      store.create("Bench", "Wide");
      listing(store);
      store.create("Bench", "Built");
      building(store);
      heap(store);
      firstPages(folder);
    } finally {
      try (Stream<Path> files = Files.walk(folder)) {
        files.sorted(Comparator.reverseOrder()).forEach(file -> file.toFile().delete());
      }
    }
  }

  private void listing(Store store) {
    System.out.printf("Listing the children of one member, nanoseconds per member%n");
    System.out.printf("%12s %12s %14s %8s%n", "members", "facade", "getChildrenEx", "ratio");
    try (Outline outline = store.edit("Bench", "Wide")) {
      Member product = outline.create(Place.firstDimension(), new NewMember(PRODUCT));
      for (int size : sizes) {
        Member range = outline.create(Place.lastBelow(product), new NewMember("Range " + size));
        outline.build(Place.firstBelow(range), members(PRODUCT + " " + size + " ", size));
        OutlineHandle handle = outline.handle();
        double[] times = measure(size, () -> {
          List<Member> list = outline.children(range, Details.NONE).collect(Collectors.toList());
          return list.size() == size ? list : null;
        }, () -> {
          List<DefaultMember> list = new ArrayList<>();
          StandinSession.check("list", OutlineJni.getChildrenEx(
              store.session().instance(), handle, null, range.handle(), list));
          return list.size() == size ? list : null;
        });
        System.out.printf("%,12d %12.0f %14.0f %8.2f%n", size, times[0], times[1],
            times[0] / times[1]);
      }
      outline.save();
    }
  }

  private void building(Store store) {
    System.out.printf("%nMaking members, names only, nanoseconds per member%n");
    System.out.printf("%12s %12s %14s %8s%n", "members", "facade", "createMember", "ratio");
    for (int size : sizes) {
      int[] number = {0};
      double[] times;
      try (Outline outline = store.edit("Bench", "Built")) {
        Member product = outline.create(Place.firstDimension(), new NewMember(PRODUCT));
        OutlineHandle handle = outline.handle();
        times = measure(size, () -> {
          Member range =
              outline.create(Place.firstBelow(product), new NewMember("F" + number[0]++));
          return outline.build(Place.firstBelow(range), members("F" + number[0] + " ", size));
        }, () -> {
          Member range =
              outline.create(Place.firstBelow(product), new NewMember("N" + number[0]++));
          int previous = 0;
          for (int i = 0; i < size; i++) {
            List<DefaultMember> made = new ArrayList<>();
            StandinSession.check("create", OutlineJni.createMember(
                store.session().instance(), handle, range.handle(), previous,
                "N" + number[0] + " " + i, made));
            previous = made.get(0).getHandle();
          }
          return range;
        });
      }
      System.out.printf("%,12d %12.0f %14.0f %8.2f%n", size, times[0], times[1],
          times[0] / times[1]);
    }
  }

  private static long used() {
    for (int i = 0; i < 3; i++) {
      System.gc();
    }
    return Runtime.getRuntime().totalMemory() - Runtime.getRuntime().freeMemory();
  }

  private void heap(Store store) {
    int size = sizes.get(sizes.size() - 1);
    try (Outline outline = store.browse("Bench", "Wide")) {
      Member range = outline.find("Range " + size).get();
      long before = used();
      Member[] members = outline.children(range, Details.NONE).toArray(Member[]::new);
      long kept = used() - before;
      String[] names = new String[size];
      for (int i = 0; i < size; i++) {
        names[i] = new String(members[i].name().toCharArray());
      }
      long both = used() - before;
      System.out.printf("%nHeap of %,d members that are kept: %.0f bytes per member and its name%n",
          size, (double) (kept - (both - kept)) / size);
      if (members[0].name().equals(names[size - 1])) {
        throw new AssertionError();
      }
    }
  }

  /** Prints the processor time that the first page took in this thread, in microseconds. */
  private static void firstPage(String folder) {
    try (Store store = Store.open(folder, "bench");
        Outline outline = store.browse("Bench", "Wide")) {
      long start = THREADS.getCurrentThreadCpuTime();
      Member product = outline.dimensions(Details.NONE).get(0);
      Member range = outline.page(product, 0, 1, Details.NONE).members().get(0);
      Page page = outline.page(range, 0, 100, Details.NONE);
      long end = THREADS.getCurrentThreadCpuTime();
      if (page.members().size() != 100) {
        throw new AssertionError();
      }
      System.out.println((end - start) / 1000);
    }
  }

  private void firstPages(Path folder) throws IOException, InterruptedException {
    long[] microseconds = new long[turns];
    for (int turn = 0; turn < turns; turn++) {
      List<String> command = new ArrayList<>(Arrays.asList(
          System.getProperty("bench.java").split("\\|")));
      command.addAll(Arrays.asList("-cp", System.getProperty("java.class.path"),
          FacadeBench.class.getName(), "--first-page", folder.toString()));
      Process process = new ProcessBuilder(command)
          .redirectError(ProcessBuilder.Redirect.INHERIT).start();
      try (BufferedReader out = new BufferedReader(
          new InputStreamReader(process.getInputStream()))) {
        microseconds[turn] = Long.parseLong(out.readLine());
      }
      process.waitFor();
    }
    Arrays.sort(microseconds);
    System.out.printf("%nThe dimensions, a child and a page of a hundred children, the first calls in a"
        + " fresh virtual machine: %.1f ms%n", microseconds[turns / 2] / 1000.0);
  }
}
