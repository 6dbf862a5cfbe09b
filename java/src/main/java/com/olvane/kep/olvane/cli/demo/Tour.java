package com.olvane.kep.olvane.cli.demo;

import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Store;
import com.olvane.kep.olvane.standin.StandinSession;
import java.io.PrintWriter;
import java.util.ArrayList;
import java.util.List;
import java.util.Locale;

/** What the acts of the demo share: the session, the plan, the page and the stop-watch. */
final class Tour {
  /** The application that the demo works in. */
  static final String APPLICATION = "Demo";

  /** The database that the demo works in. */
  static final String DATABASE = "World";

  private final Store store;
  private final OutlinePlan plan;
  private final PrintWriter page;
  private final PrintWriter progress;
  private final List<String> times = new ArrayList<>();

  /**
   * Prepares a tour.
   *
   * @param store the store, which the caller closes
   * @param plan the outline to build
   * @param page where the results go
   * @param progress where messages about the progress go
   */
  Tour(Store store, OutlinePlan plan, PrintWriter page, PrintWriter progress) {
    this.store = store;
    this.plan = plan;
    this.page = page;
    this.progress = progress;
  }

  /** {@return the session behind the store, for the native methods} */
  StandinSession session() {
    return store.session();
  }

  /** {@return the outline to build} */
  OutlinePlan plan() {
    return plan;
  }

  /** {@return the demo's outline, opened for browsing; the caller closes it} */
  Outline browse() {
    return browse(DATABASE);
  }

  /**
   * Opens an outline for browsing.
   *
   * @param database a database of the demo's application
   * @return the outline, which the caller closes
   */
  Outline browse(String database) {
    return store.browse(APPLICATION, database);
  }

  /**
   * Opens an outline for editing.
   *
   * @param database a database of the demo's application
   * @return the outline, which the caller closes
   */
  Outline edit(String database) {
    return store.edit(APPLICATION, database);
  }

  /**
   * Saves the demo's outline as the one of another database, which is created if need be and
   * restructured.
   *
   * @param database the other database of the demo's application
   */
  void saveAs(String database) {
    try (Outline open = edit(DATABASE)) {
      saveAs(open, database);
    }
  }

  /**
   * Saves an open outline as the one of another database, which is created if need be and
   * restructured.
   *
   * @param open the outline, opened for editing
   * @param database the other database of the demo's application
   */
  void saveAs(Outline open, String database) {
    create(database);
    open.database().saveAs(APPLICATION, database);
  }

  /**
   * Creates a database unless it is there from an earlier run, and makes it active.
   *
   * @param database a database of the demo's application
   */
  void create(String database) {
    if (!session().activateIfExists(APPLICATION, database)) {
      store.create(APPLICATION, database);
    }
  }

  /**
   * Prints a line of results.
   *
   * @param format a format as of {@link String#format}
   * @param arguments its arguments
   */
  void print(String format, Object... arguments) {
    page.printf(Locale.ROOT, format + "%n", arguments);
  }

  /**
   * Says what is going on.
   *
   * @param text one line
   */
  void say(String text) {
    progress.println(text);
    progress.flush();
  }

  /** {@return a new line for the progress of a step; the caller closes it} */
  ProgressLine progress() {
    return new ProgressLine(progress);
  }

  /**
   * Runs a step and notes how long it took.
   *
   * @param name what the step does
   * @param step the step; it returns the number of things it handled
   */
  void time(String name, CountedStep step) {
    long start = System.nanoTime();
    int count = step.run();
    double micros = (System.nanoTime() - start) / 1e3;
    times.add(
        String.format(
            Locale.ROOT, "  %-40s %,9d %9.1f %9.2f", name, count, micros / 1e3,
            micros / Math.max(1, count)));
  }

  /** Prints what the stop-watch has noted. */
  void printTimes() {
    print("  %-40s %9s %9s %9s", "step", "count", "ms", "µs each");
    times.forEach(line -> print("%s", line));
  }

  /** A step that counts what it handles. */
  interface CountedStep {
    /**
     * Runs the step.
     *
     * @return the number of things it handled
     */
    int run();
  }
}
