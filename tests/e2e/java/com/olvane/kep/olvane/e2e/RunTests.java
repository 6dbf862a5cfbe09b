package com.olvane.kep.olvane.e2e;

import java.io.PrintStream;
import java.util.ArrayList;
import java.util.List;
import org.junit.internal.TextListener;
import org.junit.runner.Description;
import org.junit.runner.JUnitCore;
import org.junit.runner.notification.RunListener;

/**
 * Runs the test classes named as arguments. It reports to standard error, for standard output is
 * where the virtual machine warns about JNI calls.
 */
public final class RunTests {
  private RunTests() {}

  /**
   * Runs the tests and ends with 0 if all of them passed, 1 otherwise.
   *
   * @param classNames the names of the test classes
   * @throws ClassNotFoundException if there is no such class
   */
  public static void main(String[] classNames) throws ClassNotFoundException {
    List<Class<?>> classes = new ArrayList<>();
    for (String name : classNames) {
      classes.add(Class.forName(name));
    }
    PrintStream report = System.err;
    JUnitCore core = new JUnitCore();
    core.addListener(new TextListener(report));
    core.addListener(new Times(report));
    System.exit(core.run(classes.toArray(new Class<?>[0])).wasSuccessful() ? 0 : 1);
  }

  /** Names each test with the time it took. */
  private static final class Times extends RunListener {
    private final PrintStream report;
    private long start;

    Times(PrintStream report) {
      this.report = report;
    }

    @Override
    public void testStarted(Description test) {
      start = System.nanoTime();
    }

    @Override
    public void testFinished(Description test) {
      report.printf(" %s.%s %d ms%n", test.getTestClass().getSimpleName(), test.getMethodName(),
          (System.nanoTime() - start) / 1_000_000);
    }
  }
}
