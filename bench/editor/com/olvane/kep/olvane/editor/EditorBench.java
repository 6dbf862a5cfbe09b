package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.api.outline.FindRequest;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NewMember;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Place;
import com.olvane.kep.olvane.outline.Search;
import com.olvane.kep.olvane.outline.Store;
import java.awt.Component;
import java.awt.Container;
import java.io.IOException;
import java.lang.management.ManagementFactory;
import java.lang.management.ThreadMXBean;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;
import java.util.concurrent.Callable;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.FutureTask;
import java.util.stream.IntStream;
import javax.swing.JTabbedPane;
import javax.swing.SwingUtilities;
import javax.swing.tree.TreePath;

/**
 * The editor's window on an outline whose members all lie under one parent: the first tree beside
 * opening the outline, the first page of the children, a search beside {@code findRequest}, and the
 * heap after scrolling through all of them; and the picture of them all.
 */
public final class EditorBench {
  private static final String APPLICATION = "Bench";
  private static final String DATABASE = "Wide";
  private static final String TEXT = "r 12345";

  private final Store store;
  private final int size;
  private final int turns;
  private Editor editor;
  private EditorWindow window;

  private EditorBench(Store store, int size, int turns) {
    this.store = store;
    this.size = size;
    this.turns = turns;
  }

  /**
   * Runs the benchmark.
   *
   * @param arguments {@code --quick}, {@code --smoke} and {@code --turns=N}
   * @throws Exception if anything fails
   */
  public static void main(String[] arguments) throws Exception {
    int size = 1_000_000;
    int turns = 5;
    for (String argument : arguments) {
      if (argument.equals("--quick")) {
        size = 10_000;
      } else if (argument.equals("--smoke")) {
        size = 1_000;
        turns = 1;
      } else if (argument.startsWith("--turns=")) {
        turns = Integer.parseInt(argument.substring("--turns=".length()));
      } else {
        System.err.println("bench_editor: unknown option '" + argument + "'");
        System.exit(2);
      }
    }
    System.out.printf("The editor's window on one parent with %,d members%n%s %s, %s, %d turns%n%n",
        size, System.getProperty("java.vm.name"), System.getProperty("java.version"),
        System.getProperty("os.arch"), turns);
    Path folder = Files.createTempDirectory("bench");
    try (Store store = Store.open(folder.toString(), "bench")) {
      new EditorBench(store, size, turns).run();
    } catch (Exception | Error e) {
      // A window that is left would keep the program.
      e.printStackTrace();
      System.exit(1);
    } finally {
      delete(folder);
    }
    System.exit(0);
  }

  private static void delete(Path folder) throws IOException {
    List<Path> all = new ArrayList<>();
    Files.walk(folder).forEach(all::add);
    for (int i = all.size() - 1; i >= 0; i--) {
      Files.delete(all.get(i));
    }
  }

  private void run() throws Exception {
    store.create(APPLICATION, DATABASE);
    try (Outline outline = store.edit(APPLICATION, DATABASE)) {
      Member product = outline.create(Place.firstDimension(), new NewMember("Product"));
      outline.build(Place.firstBelow(product), () -> IntStream.range(0, size)
          .mapToObj(i -> new NewMember("Member " + i)).iterator());
      outline.save();
    }
    editor = onEventThread(() -> new Editor(store));
    // The program ends with its last window; this one stays.
    store.create(APPLICATION, "Empty");
    open("Empty");
    double[] opening = new double[turns];
    double[] first = new double[turns];
    double[] page = new double[turns];
    // The first turn only warms up.
    for (int turn = -1; turn < turns; turn++) {
      int at = Math.max(turn, 0);
      opening[at] = millis(() -> store.edit(APPLICATION, DATABASE).close());
      first[at] = millis(this::showFirstTree);
      page[at] = millis(this::expand);
      if (turn + 1 < turns) {
        close();
      }
    }
    report("open and close the outline alone", opening, null);
    report("until the tree shows its dimensions", first, opening);
    report("until the first page of children is shown", page, null);
    search();
    scroll();
    picture();
    close();
  }

  private static <T extends Component> T find(Container in, Class<T> type) {
    for (Component component : in.getComponents()) {
      T found = type.isInstance(component) ? type.cast(component)
          : component instanceof Container ? find((Container) component, type) : null;
      if (found != null) {
        return found;
      }
    }
    return null;
  }

  /** Reads all members and draws them, and draws them once more. */
  private void picture() throws Exception {
    PicturePane pane = find(window.frame, PicturePane.class);
    PictureView view = find(pane, PictureView.class);
    double[] read = {millis(() -> {
      onEventThread(() -> {
        find(window.frame, JTabbedPane.class).setSelectedComponent(pane);
        return null;
      });
      await(() -> view.picture.count == size + 1);
    })};
    double[] drawn = {millis(() -> onEventThread(() -> {
      view.show(view.picture, -1, view.picture.layOut(-1, view.getHeight(), false, 12));
      view.paintImmediately(view.getVisibleRect());
      return null;
    }))};
    report("until all members are read for the picture", read, null);
    report("lay the picture out and draw it", drawn, null);
  }

  private interface Work {
    void run() throws Exception;
  }

  private static double millis(Work work) throws Exception {
    long start = System.nanoTime();
    work.run();
    return (System.nanoTime() - start) / 1e6;
  }

  private static <T> T onEventThread(Callable<T> task) throws Exception {
    FutureTask<T> future = new FutureTask<>(task);
    SwingUtilities.invokeAndWait(future);
    return future.get();
  }

  private static double median(double[] values) {
    double[] sorted = values.clone();
    Arrays.sort(sorted);
    return sorted[sorted.length / 2];
  }

  private static void report(String what, double[] millis, double[] beside) {
    System.out.printf("%-45s %10.1f ms%s%n", what, median(millis),
        beside == null ? "" : String.format("   ratio %.2f", median(millis) / median(beside)));
  }

  private void open(String database) throws Exception {
    CountDownLatch opened = new CountDownLatch(1);
    SwingUtilities.invokeLater(() -> editor.open(APPLICATION, database, null, shown -> {
      window = editor.windows.get(editor.windows.size() - 1);
      opened.countDown();
    }));
    opened.await();
  }

  private void showFirstTree() throws Exception {
    open(DATABASE);
    await(() -> window.tree.getRowCount() == 1 && nodeAt(0).member != null);
    paint();
  }

  private MemberNode nodeAt(int row) {
    return (MemberNode) window.tree.getPathForRow(row).getLastPathComponent();
  }

  private void await(Callable<Boolean> condition) throws Exception {
    while (!onEventThread(condition)) {
      Thread.sleep(1);
    }
  }

  private void paint() throws Exception {
    onEventThread(() -> {
      window.tree.paintImmediately(window.tree.getVisibleRect());
      return null;
    });
  }

  private void expand() throws Exception {
    onEventThread(() -> {
      window.tree.expandRow(0);
      return null;
    });
    await(() -> window.tree.getRowCount() == size + 1 && nodeAt(1).member != null);
    paint();
  }

  private void close() throws Exception {
    onEventThread(() -> {
      window.close();
      return null;
    });
    await(() -> !window.frame.isDisplayable());
  }

  // ---- Searching ----

  private void search() throws Exception {
    double[] alone = new double[turns];
    double[] inWindow = new double[turns];
    Outline outline = window.workspace.outline;
    SearchTask[] task = new SearchTask[1];
    int[] hits = new int[1];
    onEventThread(() -> task[0] = new SearchTask(window.workspace));
    for (int turn = -1; turn < turns; turn++) {
      double one = millis(() -> hits[0] = find(outline));
      double two = millis(() -> {
        onEventThread(() -> {
          task[0].start(new Search(TEXT).aliases(), Details.NONE);
          return null;
        });
        await(() -> !task[0].running);
      });
      if (task[0].hits.size() != hits[0]) {
        throw new AssertionError(task[0].hits.size() + " hits are not " + hits[0]);
      }
      if (turn >= 0) {
        alone[turn] = one * 1e6 / size;
        inWindow[turn] = two * 1e6 / size;
      }
    }
    System.out.printf("%-45s %10.0f ns%n", "findRequest alone, per member", median(alone));
    System.out.printf("%-45s %10.0f ns   ratio %.2f%n", "the window's search, per member",
        median(inWindow), median(inWindow) / median(alone));
  }

  private int find(Outline outline) {
    FindRequest request = new FindRequest();
    request.setText(TEXT);
    request.setSearchMemberNames(true);
    request.setSearchFormulas(false);
    request.setSearchUDAS(false);
    request.setAliasTableUsage(FindRequest.ALIASES_ALL_TABLES);
    request.setMaximumMembersPerBatch(10_000);
    request.setMaximumMatchesPerBatch(10_000);
    List<DefaultMember> found = new ArrayList<>();
    do {
      OutlineJni.findRequest(store.session().instance(), outline.handle(), request, found);
    } while (request.getLastHandle() != 0);
    return found.size();
  }

  // ---- Scrolling ----

  private void scroll() throws Exception {
    long[] longest = new long[1];
    ThreadMXBean threads = ManagementFactory.getThreadMXBean();
    List<Long> pauses = new ArrayList<>();
    OutlineTree tree = window.tree;
    int step = Math.max(MemberNode.Page.SIZE, size / 2000);
    long start = System.nanoTime();
    for (int row = 1; row <= size; row += step) {
      int at = row;
      long before = System.nanoTime();
      onEventThread(() -> {
        long begin = threads.getCurrentThreadCpuTime();
        tree.scrollRowToVisible(at);
        tree.paintImmediately(tree.getVisibleRect());
        longest[0] = Math.max(longest[0], threads.getCurrentThreadCpuTime() - begin);
        return null;
      });
      pauses.add(System.nanoTime() - before);
      await(() -> nodeAt(at).member != null);
    }
    Collections.sort(pauses);
    double seconds = (System.nanoTime() - start) / 1e9;
    TreePath last = onEventThread(() -> tree.getPathForRow(size));
    System.gc();
    Runtime runtime = Runtime.getRuntime();
    System.out.printf("%-45s %10.1f s to %s%n", "scrolling through all of them", seconds,
        last.getLastPathComponent());
    System.out.printf("%-45s %10.1f ms, of 100 steps 99 within %.1f ms%n",
        "longest work of the event thread at once", longest[0] / 1e6,
        pauses.get(pauses.size() * 99 / 100) / 1e6);
    System.out.printf("%-45s %10d MB in use of at most %d MB%n", "heap after that",
        (runtime.totalMemory() - runtime.freeMemory()) >> 20, runtime.maxMemory() >> 20);
  }
}
