package com.olvane.kep.olvane.editor;

import java.awt.AWTEvent;
import java.awt.AWTException;
import java.awt.Component;
import java.awt.Container;
import java.awt.MouseInfo;
import java.awt.Point;
import java.awt.Rectangle;
import java.awt.Robot;
import java.awt.Toolkit;
import java.awt.Window;
import java.awt.datatransfer.StringSelection;
import java.awt.event.InputEvent;
import java.awt.event.KeyEvent;
import java.awt.event.MouseEvent;
import java.io.File;
import java.io.IOException;
import java.util.concurrent.Callable;
import java.util.concurrent.ExecutionException;
import java.util.concurrent.FutureTask;
import java.util.concurrent.atomic.AtomicInteger;
import java.util.function.Predicate;
import java.util.function.Supplier;
import javax.imageio.ImageIO;
import javax.swing.JComponent;
import javax.swing.JTree;
import javax.swing.KeyStroke;
import javax.swing.SwingUtilities;

/**
 * Somebody at the screen: mouse and keyboard as real events, and eyes that wait for what is to
 * come. Used from the thread of a test, never from the event thread.
 */
final class RobotUser {
  /** Keys of a US keyboard without and with shift, where they are neither letters nor space. */
  private static final String PLAIN = "`1234567890-=[]\\;',./";
  private static final String SHIFTED = "~!@#$%^&*()_+{}|:\"<>?";
  private static final int[] PLAIN_KEYS = {
    KeyEvent.VK_BACK_QUOTE, '1', '2', '3', '4', '5', '6', '7', '8', '9', '0', KeyEvent.VK_MINUS,
    KeyEvent.VK_EQUALS, KeyEvent.VK_OPEN_BRACKET, KeyEvent.VK_CLOSE_BRACKET,
    KeyEvent.VK_BACK_SLASH, KeyEvent.VK_SEMICOLON, KeyEvent.VK_QUOTE, KeyEvent.VK_COMMA,
    KeyEvent.VK_PERIOD, KeyEvent.VK_SLASH
  };

  private static final long PATIENCE_NANOS = 20_000_000_000L;

  /** How long a key or a click may take to arrive; one that a drag swallows never does. */
  private static final long ARRIVAL_NANOS = 250_000_000L;

  private final Robot robot;
  private final AtomicInteger arrived = new AtomicInteger();
  /** What the mouse was released on last. */
  private volatile Component clicked;

  RobotUser() {
    try {
      robot = new Robot();
    } catch (AWTException e) {
      throw new IllegalStateException("There is no mouse and keyboard to use", e);
    }
    robot.setAutoDelay(5);
    Toolkit.getDefaultToolkit().addAWTEventListener(event -> {
      if (event.getID() == KeyEvent.KEY_RELEASED || event.getID() == MouseEvent.MOUSE_RELEASED) {
        arrived.incrementAndGet();
      }
      if (event.getID() == MouseEvent.MOUSE_RELEASED) {
        clicked = ((MouseEvent) event).getComponent();
      }
    }, AWTEvent.KEY_EVENT_MASK | AWTEvent.MOUSE_EVENT_MASK);
  }

  /**
   * Releases what was pressed, and waits until the event thread has handled it. A robot's own
   * waiting for idle events takes up to ten seconds a time on some virtual machines.
   */
  private void releaseAndSettle(Runnable release) {
    int before = arrived.get();
    release.run();
    long end = System.nanoTime() + ARRIVAL_NANOS;
    while (arrived.get() == before && System.nanoTime() < end) {
      robot.delay(2);
    }
    settle();
  }

  /** Lets the event thread handle what has arrived, and what follows from it. */
  private void settle() {
    for (int i = 0; i < 3; i++) {
      robot.delay(5);
      onEventThread(() -> null);
    }
  }

  // ---- Looking ----

  /** Asks on the event thread. */
  static <T> T onEventThread(Callable<T> question) {
    FutureTask<T> task = new FutureTask<>(question);
    SwingUtilities.invokeLater(task);
    try {
      return task.get();
    } catch (ExecutionException e) {
      if (e.getCause() instanceof AssertionError) {
        throw (AssertionError) e.getCause();
      }
      throw new AssertionError("The event thread failed", e.getCause());
    } catch (InterruptedException e) {
      throw new AssertionError(e);
    }
  }

  /** Waits until an answer from the event thread is true. */
  void waitFor(String what, Supplier<Boolean> answer) {
    waitForOne(what, () -> answer.get() ? true : null);
  }

  /** Waits until the event thread has an answer that is not null, and gives it. */
  <T> T waitForOne(String what, Supplier<T> answer) {
    long end = System.nanoTime() + PATIENCE_NANOS;
    while (true) {
      T found = onEventThread(answer::get);
      if (found != null) {
        return found;
      }
      if (System.nanoTime() > end) {
        throw new AssertionError("Waited in vain for " + what + "; the screen then: " + picture());
      }
      robot.delay(10);
    }
  }

  /** Waits for a component that is showing; {@code name} is its name or accessible name. */
  <T extends Component> T find(Class<T> type, String name) {
    return find(type, "the " + type.getSimpleName() + " " + name,
        one -> name.equals(one.getName())
            || name.equals(one.getAccessibleContext().getAccessibleName()));
  }

  /** Waits for a component that is showing and is the one. */
  <T extends Component> T find(Class<T> type, String what, Predicate<T> isIt) {
    return waitForOne(what, () -> showing(type, isIt));
  }

  /** The component that is showing now, newest window first; null where none is. */
  static <T extends Component> T showing(Class<T> type, Predicate<T> isIt) {
    Window[] windows = Window.getWindows();
    for (int i = windows.length - 1; i >= 0; i--) {
      T found = windows[i].isShowing() ? below(windows[i], type, isIt) : null;
      if (found != null) {
        return found;
      }
    }
    return null;
  }

  private static <T extends Component> T below(
      Component component, Class<T> type, Predicate<T> isIt) {
    if (type.isInstance(component) && component.isShowing()
        && isIt.test(type.cast(component))) {
      return type.cast(component);
    }
    if (component instanceof Container) {
      for (Component child : ((Container) component).getComponents()) {
        T found = below(child, type, isIt);
        if (found != null) {
          return found;
        }
      }
    }
    return null;
  }

  /** Saves what the screen shows, and tells where. */
  File picture() {
    try {
      File file = File.createTempFile("screen", ".png", new File(".."));
      Rectangle all = new Rectangle(Toolkit.getDefaultToolkit().getScreenSize());
      ImageIO.write(robot.createScreenCapture(all), "png", file);
      return file.getCanonicalFile();
    } catch (IOException e) {
      throw new AssertionError("The screen could not be saved", e);
    }
  }

  // ---- The mouse ----

  /** The middle of a part of a component, on the screen; null for all that is visible of it. */
  private static Point middle(Component component, Rectangle part) {
    Rectangle seen = part == null ? new Rectangle(component.getSize()) : part;
    if (component instanceof JComponent) {
      if (part != null) {
        ((JComponent) component).scrollRectToVisible(part);
      }
      seen = ((JComponent) component).getVisibleRect().intersection(seen);
    }
    Point at = component.getLocationOnScreen();
    at.translate((int) seen.getCenterX(), (int) seen.getCenterY());
    return at;
  }

  private void moveTo(Point point) {
    robot.mouseMove(point.x, point.y);
    settle();
  }

  /**
   * Moves to a part of a component. A window that has just come may still move: the component is
   * followed until the mouse rests over it, for a while, as another window may lie above.
   */
  private void moveTo(Component component, Rectangle part) {
    long end = System.nanoTime() + 3_000_000_000L;
    int over = 0;
    for (int round = 0; over < 2 && System.nanoTime() < end; round++) {
      if (round == 30) {
        moveWindowOf(component);
      }
      boolean hit = onEventThread(() -> {
        Point point = middle(component, part);
        boolean there = point.equals(MouseInfo.getPointerInfo().getLocation());
        robot.mouseMove(point.x, point.y);
        return there && (component instanceof Container
            ? ((Container) component).getMousePosition(true)
            : component.getMousePosition()) != null;
      });
      over = hit ? over + 1 : 0;
      settle();
    }
  }

  /**
   * Moves a window by a pixel: where no window manager is, the toolkit may take a dialog to be
   * where it was made and not where it was put, until it is moved.
   */
  private static void moveWindowOf(Component component) {
    onEventThread(() -> {
      Window window = SwingUtilities.getWindowAncestor(component);
      if (window != null) {
        window.setLocation(window.getX() + 1, window.getY());
      }
      return null;
    });
  }

  void click(Component component) {
    click(component, null);
  }

  /** Clicks in the middle of a part of a component, in its own coordinates. */
  void click(Component component, Rectangle part) {
    boolean arrives = false;
    // A window that comes up or moves at that moment may take the click away.
    for (int tries = 0; tries < 3 && !arrives && component.isShowing(); tries++) {
      moveTo(component, part);
      clicked = null;
      robot.mousePress(InputEvent.BUTTON1_DOWN_MASK);
      robot.mouseRelease(InputEvent.BUTTON1_DOWN_MASK);
      long end = System.nanoTime() + 2_000_000_000L;
      while (!arrives && System.nanoTime() < end) {
        robot.delay(2);
        Component on = clicked;
        arrives = on != null && SwingUtilities.isDescendingFrom(on, component);
      }
      settle();
    }
  }

  /** Clicks into a field until it has the keyboard: a window that has just come may take it back. */
  void clickInto(Component field) {
    click(field);
    Window window = SwingUtilities.getWindowAncestor(field);
    waitFor("the keyboard in the window", window::isFocused);
    robot.delay(50);
    settle();
    if (!onEventThread(field::isFocusOwner)) {
      click(field);
    }
    waitFor("the keyboard in the field", field::isFocusOwner);
  }

  /** Clicks while keys are held: {@code KeyEvent.VK_CONTROL}, {@code VK_SHIFT}. */
  void clickWith(int key, Component component, Rectangle part) {
    robot.keyPress(key);
    click(component, part);
    releaseAndSettle(() -> robot.keyRelease(key));
  }

  /** Drags from one part of a component to one of another, as slowly as a hand. */
  void drag(Component from, Rectangle fromPart, Component to, Rectangle toPart) {
    moveTo(from, fromPart);
    Point start = MouseInfo.getPointerInfo().getLocation();
    Point end = onEventThread(() -> middle(to, toPart));
    robot.mousePress(InputEvent.BUTTON1_DOWN_MASK);
    robot.delay(50);
    int steps = 12;
    for (int i = 1; i <= steps; i++) {
      moveTo(new Point(start.x + (end.x - start.x) * i / steps,
          start.y + (end.y - start.y) * i / steps));
      robot.delay(20);
    }
    // The last step of a drag is only noticed when the mouse moves once more.
    moveTo(new Point(end.x + 1, end.y));
    moveTo(end);
    robot.delay(100);
    releaseAndSettle(() -> robot.mouseRelease(InputEvent.BUTTON1_DOWN_MASK));
  }

  void wheel(Component component, int notches) {
    moveTo(component, null);
    robot.mouseWheel(notches);
    settle();
  }

  // ---- The keyboard ----

  /** Presses a key as {@link KeyStroke#getKeyStroke(String)} has it: {@code "ctrl shift Z"}. */
  void key(String stroke) {
    KeyStroke key = KeyStroke.getKeyStroke(stroke);
    if (key == null) {
      throw new IllegalArgumentException("There is no key " + stroke);
    }
    int[] masks = {InputEvent.CTRL_DOWN_MASK, InputEvent.SHIFT_DOWN_MASK, InputEvent.ALT_DOWN_MASK};
    int[] keys = {KeyEvent.VK_CONTROL, KeyEvent.VK_SHIFT, KeyEvent.VK_ALT};
    for (int i = 0; i < keys.length; i++) {
      if ((key.getModifiers() & masks[i]) != 0) {
        robot.keyPress(keys[i]);
      }
    }
    robot.keyPress(key.getKeyCode());
    releaseAndSettle(() -> robot.keyRelease(key.getKeyCode()));
    for (int i = keys.length - 1; i >= 0; i--) {
      if ((key.getModifiers() & masks[i]) != 0) {
        robot.keyRelease(keys[i]);
      }
    }
    settle();
  }

  /** Types a text; what a US keyboard has no key for is pasted. */
  void type(String text) {
    if (!text.chars().allMatch(c -> c >= ' ' && c <= '~')) {
      Toolkit.getDefaultToolkit().getSystemClipboard()
          .setContents(new StringSelection(text), null);
      key("ctrl V");
      return;
    }
    for (char c : text.toCharArray()) {
      int shifted = SHIFTED.indexOf(c);
      boolean shift = shifted >= 0 || Character.isUpperCase(c);
      int plain = shifted >= 0 ? shifted : PLAIN.indexOf(c);
      int code = plain >= 0 ? PLAIN_KEYS[plain] : Character.toUpperCase(c);
      if (shift) {
        robot.keyPress(KeyEvent.VK_SHIFT);
      }
      robot.keyPress(code);
      releaseAndSettle(() -> robot.keyRelease(code));
      if (shift) {
        robot.keyRelease(KeyEvent.VK_SHIFT);
      }
    }
    settle();
  }

  // ---- Trees ----

  /** Waits for the row of a tree whose node shows as a text, and gives its bounds. */
  Rectangle row(JTree tree, String text) {
    return waitForOne("the row " + text, () -> {
      for (int row = 0; row < tree.getRowCount(); row++) {
        Object node = tree.getPathForRow(row).getLastPathComponent();
        String shown = tree.convertValueToText(node, false, false, false, row, false);
        if (shown.equals(text)) {
          return tree.getRowBounds(row);
        }
      }
      return null;
    });
  }
}
