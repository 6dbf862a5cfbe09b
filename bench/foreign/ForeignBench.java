import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NewMember;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Place;
import com.olvane.kep.olvane.outline.Store;
import com.olvane.kep.olvane.standin.StandinSession;
import java.lang.foreign.Arena;
import java.lang.foreign.FunctionDescriptor;
import java.lang.foreign.Linker;
import java.lang.foreign.MemorySegment;
import java.lang.foreign.SymbolLookup;
import java.lang.foreign.ValueLayout;
import java.lang.invoke.MethodHandle;
import java.lang.management.ManagementFactory;
import java.lang.management.ThreadMXBean;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Comparator;
import java.util.List;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/**
 * The facade and the native methods beside Java that binds the outline API itself through the
 * foreign-function interface, as one would write it by hand: the children of one member with all
 * values of their records. Run from its source by a Java that has the interface.
 *
 * <p>Texts are read as UTF-8, which the API's texts are within the basic plane.
 */
public final class ForeignBench {
  private static final ThreadMXBean THREADS = ManagementFactory.getThreadMXBean();
  private static final int QUERY_CHILDREN = 1;
  private static final int STRUCTURE_MEMBER_INFO = 65;
  private static final int RECORD_BYTES = 556;

  /** What the facade's member holds, too. */
  private record Info(int handle, String name, String dimension, String comment,
      String currencyMember, short level, short generation, short consolidation, boolean twoPass,
      boolean expense, short conversion, short timeBalance, short timeBalanceSkip, short share,
      short storageType, short category, int childCount, boolean attributed, short attributeType,
      boolean hybrid, boolean hybridEnabled) {}

  /** The functions of the outline API that a listing needs. */
  private static final class Api {
    private final MethodHandle query;
    private final MethodHandle info;
    private final MethodHandle freeStructure;
    private final MethodHandle freeMembers;
    private final Arena arena = Arena.ofShared();
    private final MemorySegment request = arena.allocate(32, 8);
    private final MemorySegment counts = arena.allocate(16, 4);
    private final MemorySegment result = arena.allocate(ValueLayout.ADDRESS);

    Api(Path library) {
      Linker linker = Linker.nativeLinker();
      SymbolLookup symbols = SymbolLookup.libraryLookup(library, arena);
      ValueLayout.OfInt number = ValueLayout.JAVA_INT;
      ValueLayout pointer = ValueLayout.ADDRESS;
      query = linker.downcallHandle(symbols.find("OlvOtlQueryMembers").get(),
          FunctionDescriptor.of(number, number, number, pointer, pointer, pointer));
      info = linker.downcallHandle(symbols.find("OlvOtlGetMemberInfo").get(),
          FunctionDescriptor.of(number, number, number, pointer));
      freeStructure = linker.downcallHandle(symbols.find("OlvOtlFreeStructure").get(),
          FunctionDescriptor.of(number, number, number, number, pointer));
      freeMembers = linker.downcallHandle(symbols.find("OlvOtlFreeMembers").get(),
          FunctionDescriptor.of(number, number, number, pointer));
    }

    private static void require(int status) {
      if (status != 0) {
        throw new IllegalStateException("status " + status);
      }
    }

    List<Info> children(int outline, int parent) throws Throwable {
      request.fill((byte) 0).set(ValueLayout.JAVA_INT, 0, QUERY_CHILDREN);
      counts.fill((byte) 0);
      require((int) query.invokeExact(outline, parent, request, counts, result));
      int count = counts.get(ValueLayout.JAVA_INT, 12);
      MemorySegment handles = result.get(ValueLayout.ADDRESS, 0).reinterpret(4L * count);
      List<Info> list = new ArrayList<>(count);
      for (int i = 0; i < count; i++) {
        list.add(read(outline, handles.getAtIndex(ValueLayout.JAVA_INT, i)));
      }
      require((int) freeMembers.invokeExact(outline, count, handles));
      return list;
    }

    private Info read(int outline, int member) throws Throwable {
      require((int) info.invokeExact(outline, member, result));
      MemorySegment block = result.get(ValueLayout.ADDRESS, 0).reinterpret(RECORD_BYTES);
      Info read = new Info(member, block.getString(0), block.getString(448), block.getString(186),
          block.getString(92), number(block, 82), number(block, 84), number(block, 86),
          flag(block, 88), flag(block, 89), number(block, 90), number(block, 174),
          number(block, 176), number(block, 178), number(block, 180), number(block, 182),
          block.get(ValueLayout.JAVA_INT, 444), flag(block, 529), number(block, 532),
          flag(block, 544), flag(block, 545));
      require((int) freeStructure.invokeExact(outline, 1, STRUCTURE_MEMBER_INFO, block));
      return read;
    }

    private static short number(MemorySegment block, long offset) {
      return block.get(ValueLayout.JAVA_SHORT, offset);
    }

    private static boolean flag(MemorySegment block, long offset) {
      return block.get(ValueLayout.JAVA_BYTE, offset) != 0;
    }
  }

  /** One way to do a piece of work. */
  private interface Way {
    List<?> run() throws Throwable;
  }

  private ForeignBench() {}

  /**
   * Runs the benchmark.
   *
   * @param arguments the path of the outline API's library, then {@code --quick}, {@code --smoke}
   *     and {@code --turns=N}
   * @throws Throwable if a way fails
   */
  public static void main(String[] arguments) throws Throwable {
    List<Integer> sizes = Arrays.asList(100, 10_000, 100_000, 1_000_000);
    int turns = 9;
    for (String argument : Arrays.asList(arguments).subList(1, arguments.length)) {
      if (argument.startsWith("--turns=")) {
        turns = Integer.parseInt(argument.substring("--turns=".length()));
      } else {
        sizes = sizes.subList(0, argument.equals("--smoke") ? 1 : 2);
      }
    }
    System.out.printf("%nBeside a binding by hand through the foreign-function interface%n%s %s, %d"
        + " turns%n%n%12s %12s %14s %12s %16s%n", System.getProperty("java.vm.name"),
        System.getProperty("java.version"), turns, "members", "facade", "getChildrenEx",
        "foreign", "facade/foreign");
    Path folder = Files.createTempDirectory("bench");
    try (Store store = Store.open(folder.toString(), "bench")) {
      store.create("Bench", "Wide");
      try (Outline outline = store.edit("Bench", "Wide")) {
        listing(store, outline, Path.of(arguments[0]), sizes, turns);
      }
    } finally {
      try (Stream<Path> files = Files.walk(folder)) {
        files.sorted(Comparator.reverseOrder()).forEach(file -> file.toFile().delete());
      }
    }
  }

  private static void listing(
      Store store, Outline outline, Path library, List<Integer> sizes, int turns)
      throws Throwable {
    Member product = outline.create(Place.firstDimension(), new NewMember("Product"));
    Api[] api = new Api[1];
    for (int size : sizes) {
      Member range = outline.create(Place.lastBelow(product), new NewMember("Range " + size));
      List<NewMember> members = new ArrayList<>();
      for (int i = 0; i < size; i++) {
        members.add(new NewMember("Product " + size + " " + i));
      }
      outline.build(Place.firstBelow(range), members);
      Way facade = () -> outline.children(range, Details.NONE).collect(Collectors.toList());
      Way natives = () -> {
        List<DefaultMember> list = new ArrayList<>();
        StandinSession.check("list", OutlineJni.getChildrenEx(
            store.session().instance(), outline.handle(), null, range.handle(), list));
        return list;
      };
      Way foreign = () -> {
        if (api[0] == null) {
          api[0] = new Api(library);
        }
        return api[0].children(outline.handle().getValue(), range.handle());
      };
      if (size == sizes.get(0)) {
        System.out.printf("%,12d %9.1f ms %11.1f ms %9.1f ms %16s%n", size,
            time(size, facade) / 1e6, time(size, natives) / 1e6, time(size, foreign) / 1e6,
            "the first calls");
      }
      report(size, turns, facade, natives, foreign);
    }
  }

  /** Nanoseconds of this thread's processor time, per member, medians of turns side by side. */
  private static void report(int size, int turns, Way... ways) throws Throwable {
    int rounds = size >= 1_000_000 ? (turns + 1) / 2 : turns;
    double[][] nanoseconds = new double[ways.length][rounds];
    for (int turn = turns == 1 || size >= 100_000 ? -1 : -200_000 / size; turn < rounds; turn++) {
      for (int way = 0; way < ways.length; way++) {
        if (size >= 100_000) {
          System.gc();
        }
        double time = time(size, ways[way]);
        if (turn >= 0) {
          nanoseconds[way][turn] = time / size;
        }
      }
    }
    for (double[] times : nanoseconds) {
      Arrays.sort(times);
    }
    double[] medians =
        Arrays.stream(nanoseconds).mapToDouble(times -> times[rounds / 2]).toArray();
    System.out.printf("%,12d %9.0f ns %11.0f ns %9.0f ns %16.2f%n", size, medians[0], medians[1],
        medians[2], medians[0] / medians[2]);
  }

  private static double time(int size, Way way) throws Throwable {
    long start = THREADS.getCurrentThreadCpuTime();
    List<?> result = way.run();
    long end = THREADS.getCurrentThreadCpuTime();
    if (result.size() != size) {
      throw new AssertionError();
    }
    return end - start;
  }
}
