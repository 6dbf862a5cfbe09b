package com.olvane.kep.olvane.editor;

import static org.junit.Assert.assertEquals;

import com.olvane.kep.olvane.e2e.Settings;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.OutlineException;
import com.olvane.kep.olvane.outline.Store;
import java.awt.Component;
import java.awt.Window;
import java.util.ConcurrentModificationException;
import java.util.concurrent.Callable;
import java.util.stream.Collectors;
import javax.swing.JButton;
import javax.swing.JMenu;
import javax.swing.JMenuItem;
import javax.swing.JTextField;
import javax.swing.JTree;
import javax.swing.SwingUtilities;
import javax.swing.tree.TreePath;
import org.junit.rules.ExternalResource;

/** The window of the outline Test.Test of a new store, and what can be seen in it. */
final class WindowOutline extends ExternalResource {
  final String folder = Settings.newFolder().toString();
  Store store;
  Workspace workspace;
  Editor editor;
  EditorWindow window;
  JTree tree;

  @Override
  protected void before() {
    store = Store.open(folder, "tester");
    store.create("Test", "Test");
  }

  @Override
  protected void after() {
    store.close();
  }

  /** Opens the window. */
  void open(RobotUser user) throws Exception {
    openBy(user, () -> null);
  }

  /** Opens the window by answering what is asked before. */
  void openBy(RobotUser user, Callable<Void> answer) throws Exception {
    RobotUser.onEventThread(() -> {
      editor = new Editor(store);
      return null;
    });
    SwingUtilities.invokeLater(() -> editor.open("Test", "Test", null, opened -> {
      if (opened) {
        window = editor.windows.get(0);
      }
    }));
    answer.call();
    user.waitFor("the window", () -> window != null && window.frame.isShowing());
    workspace = window.workspace;
    tree = window.tree;
    user.waitFor("the tree", () -> workspace.members() == 0 || tree.getRowCount() > 0);
  }

  // ---- What users do in more than one test ----

  /** Chooses a command from a menu. */
  void menu(RobotUser user, String menu, String item) {
    user.click(user.find(JMenu.class, menu, one -> one.getText().equals(menu)));
    user.click(user.find(JMenuItem.class, item, one -> one.getText().equals(item)));
  }

  /**
   * Presses a button by the keyboard: where nobody manages windows, one that has just come does
   * not hear of every click on a busy machine.
   */
  void press(RobotUser user, String button) {
    JButton found = user.find(JButton.class, button, one -> button.equals(one.getText())
        && !"cancel".equals(one.getName()));
    Window dialog = SwingUtilities.getWindowAncestor(found);
    user.waitFor("the keyboard in the dialog", () -> dialog.getFocusOwner() != null);
    while (!RobotUser.onEventThread(found::isFocusOwner)) {
      Component before = RobotUser.onEventThread(dialog::getFocusOwner);
      user.key("TAB");
      user.waitFor("the next one", () -> dialog.getFocusOwner() != before);
    }
    user.key("SPACE");
    user.waitFor(button + " to be done", () -> !found.isShowing() || !found.isFocusOwner());
  }

  /** Types a name over the one that is proposed. */
  void name(RobotUser user, String name) {
    JTextField field = user.find(JTextField.class, "name");
    user.waitFor("the keyboard in the name",
        () -> field.isFocusOwner() && field.getSelectedText() != null);
    user.type(name);
    user.key("ENTER");
    user.waitFor("the name to be taken", () -> !field.isShowing());
    user.waitFor("the keyboard back in the tree", () -> tree.isFocusOwner());
  }

  // ---- What there is to see ----

  /**
   * The outline in one line, "Product(Drinks(Cola Tea) Food)", as the tree shows it; what is below
   * a closed member is asked of the outline.
   */
  String shown() {
    try {
      return line();
    } catch (OutlineException | ConcurrentModificationException e) {
      return "the tree has not heard yet of an edit: " + e.getMessage();
    }
  }

  private String line() {
    StringBuilder line = new StringBuilder();
    int depth = 1;
    for (int row = 0; row < tree.getRowCount(); row++) {
      TreePath path = tree.getPathForRow(row);
      int below = path.getPathCount() - 1;
      MemberNode node = (MemberNode) path.getLastPathComponent();
      append(line, depth, below, node.member == null || tree.isExpanded(path)
          ? node.toString() : shape(workspace.outline, node.member));
      depth = below;
    }
    return end(line, depth);
  }

  private static void append(StringBuilder line, int depth, int below, String name) {
    for (int i = below; i < depth; i++) {
      line.append(')');
    }
    if (line.length() > 0) {
      line.append(below > depth ? '(' : ' ');
    }
    line.append(name);
  }

  private static String end(StringBuilder line, int depth) {
    for (int i = 1; i < depth; i++) {
      line.append(')');
    }
    return line.toString();
  }

  /** The same as the outline has it. */
  static String shape(Outline outline) {
    return outline.dimensions().stream().map(one -> shape(outline, one))
        .collect(Collectors.joining(" "));
  }

  private static String shape(Outline outline, Member member) {
    String children = outline.children(member, Details.NONE).map(one -> shape(outline, one))
        .collect(Collectors.joining(" "));
    return children.isEmpty() ? member.name() : member.name() + "(" + children + ")";
  }

  /** Waits until tree and outline look like this. */
  void expect(RobotUser user, String shape) {
    try {
      user.waitFor(shape, () -> shown().equals(shape));
    } catch (AssertionError e) {
      assertEquals(e.getMessage(), shape, RobotUser.onEventThread(this::shown));
    }
    assertEquals(shape, shape(workspace.outline));
  }
}
