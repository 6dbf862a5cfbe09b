package com.olvane.kep.olvane.editor;

import java.awt.Window;
import javax.swing.SwingUtilities;
import org.junit.rules.TestRule;
import org.junit.runner.Description;
import org.junit.runners.model.Statement;

/**
 * A screen without windows for each test, and a user at it. What goes wrong on the event thread
 * fails the test; the screen of a test that failed is saved.
 */
final class WindowRule implements TestRule {
  final RobotUser user = new RobotUser();
  private volatile Throwable uncaught;

  @Override
  public Statement apply(Statement test, Description description) {
    return new Statement() {
      @Override
      public void evaluate() throws Throwable {
        uncaught = null;
        Thread.setDefaultUncaughtExceptionHandler((thread, failure) -> uncaught = failure);
        try {
          test.evaluate();
          if (uncaught != null) {
            throw new AssertionError("A thread failed", uncaught);
          }
        } catch (Throwable failure) {
          System.err.println(description + " failed; the screen: " + user.picture());
          if (uncaught != null && uncaught != failure.getCause()) {
            failure.addSuppressed(uncaught);
          }
          throw failure;
        } finally {
          SwingUtilities.invokeAndWait(() -> {
            for (Window window : Window.getWindows()) {
              window.dispose();
            }
          });
        }
      }
    };
  }
}
