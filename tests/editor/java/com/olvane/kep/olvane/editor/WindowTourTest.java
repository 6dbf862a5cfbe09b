package com.olvane.kep.olvane.editor;

import static org.hamcrest.CoreMatchers.containsString;
import static org.hamcrest.MatcherAssert.assertThat;
import static org.junit.Assert.assertEquals;

import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NewMember;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Place;
import java.awt.Rectangle;
import java.awt.event.KeyEvent;
import javax.swing.JButton;
import javax.swing.JLabel;
import javax.swing.JMenuItem;
import javax.swing.JTable;
import javax.swing.JTextField;
import javax.swing.SwingUtilities;
import org.junit.Rule;
import org.junit.Test;
import org.junit.rules.RuleChain;

/** Databases from the list to the closed window: what is around editing. */
public class WindowTourTest {
  private final WindowRule screen = new WindowRule();
  private final WindowOutline open = new WindowOutline();
  @Rule public final RuleChain rules = RuleChain.outerRule(screen).around(open);

  private final RobotUser user = screen.user;

  private void fill() {
    try (Outline outline = open.store.edit("Test", "Test")) {
      outline.create(Place.firstDimension(), new NewMember("Product"));
      Member product = outline.find("Product").get();
      for (String name : new String[] {"A", "B", "C", "D"}) {
        outline.create(Place.lastBelow(product),
            new NewMember(name, new Changes().alias("Default", "(" + name)));
      }
      outline.save();
    }
  }

  private void expectSaved(String database, String shape) {
    try (Outline saved = open.store.browse("Test", database)) {
      assertEquals(shape, WindowOutline.shape(saved));
    }
  }

  private void status(String sentence) {
    user.waitFor(sentence, () -> RobotUser.showing(JLabel.class, one ->
        "message".equals(one.getName()) && one.getText().contains(sentence)) != null);
  }

  @Test
  public void severalMembersAreDraggedBetweenOthersAndCopiedWithControl() throws Exception {
    fill();
    open.open(user);
    user.click(open.tree, user.row(open.tree, "Product"));
    user.key("RIGHT");
    user.click(open.tree, user.row(open.tree, "A"));
    user.waitFor("A", () -> "A".equals(open.workspace.selection().get(0).name()));
    RobotUser.onEventThread(() -> {
      // As a key that is held down: the next comes before a move is made.
      for (int i = 0; i < 4; i++) {
        open.window.commands.get("Move Down").actionPerformed(null);
      }
      return null;
    });
    open.expect(user, "Product(B C D A)");
    assertEquals("no step for nothing", 3, open.workspace.history.done);
    for (int i = 0; i < 3; i++) {
      user.key("ctrl Z");
    }
    open.expect(user, "Product(A B C D)");
    Rectangle parent = user.row(open.tree, "Product");
    parent.translate(0, parent.height - 6);
    parent.height = 4;
    user.drag(open.tree, user.row(open.tree, "D"), open.tree, parent);
    open.expect(user, "Product(D A B C)");
    user.key("ctrl Z");
    open.expect(user, "Product(A B C D)");
    user.click(open.tree, user.row(open.tree, "A"));
    user.clickWith(KeyEvent.VK_CONTROL, open.tree, user.row(open.tree, "C"));
    user.waitFor("two members", () -> open.workspace.selection().size() == 2);
    Rectangle end = user.row(open.tree, "D");
    end.translate(0, end.height - 6);
    end.height = 4;
    user.drag(open.tree, user.row(open.tree, "A"), open.tree, end);
    open.expect(user, "Product(B D A C)");
    assertEquals("both stay selected", 2, open.workspace.selection().size());
    user.key("ctrl Z");
    open.expect(user, "Product(A B C D)");
    user.key("alt DOWN");
    open.expect(user, "Product(B D A C)");
    user.key("ctrl Z");
    user.key("DELETE");
    JButton cancel = user.find(JButton.class, "the question", one -> "Cancel".equals(one.getText()));
    user.waitFor("the keyboard in the dialog",
        () -> SwingUtilities.getWindowAncestor(cancel).getFocusOwner() != null);
    user.key("RIGHT");
    user.waitFor("the keyboard at the other answer", cancel::isFocusOwner);
    user.key("ENTER");
    user.waitFor("the question to be gone", () -> !cancel.isShowing());
    assertEquals("Product(A B C D)", open.shown());
    user.click(open.tree, user.row(open.tree, "A"));
    user.key("shift F10");
    user.find(JMenuItem.class, "the menu of a member", one -> one.getText().equals("Paste After"));
    user.key("ESCAPE");
    user.key("ctrl 1");
    user.waitFor("all closed", () -> open.tree.getRowCount() == 1);
    user.key("ctrl 2");
    user.waitFor("generation 2", () -> open.tree.getRowCount() == 5);
  }

  @Test
  public void anOutlineIsVerifiedSavedAsAnotherRestructuredAndClosed() throws Exception {
    fill();
    open.open(user);
    user.click(open.tree, user.row(open.tree, "Product"));
    user.key("ctrl shift N");
    open.name(user, "Last");
    open.expect(user, "Product(A B C D Last)");

    user.key("F7");
    JTable findings = user.find(JTable.class, "findings");
    user.waitFor("the findings", () -> findings.getRowCount() == 4);
    user.click(findings, RobotUser.onEventThread(() -> findings.getCellRect(2, 0, true)));
    user.waitFor("its member", () -> open.workspace.selection().get(0).name().equals("C"));
    user.click(open.tree, user.row(open.tree, "C"));

    user.key("ctrl shift S");
    user.waitFor("the keyboard in the dialog",
        () -> RobotUser.showing(JTextField.class,
            one -> "Database".equals(one.getName())) != null);
    user.clickInto(user.find(JTextField.class, "Database"));
    user.type("Other");
    user.key("ENTER");
    status("Saved as Test.Other");
    expectSaved("Other", "Product(A B C D Last)");
    expectSaved("Test", "Product(A B C D)");

    user.click(open.tree, user.row(open.tree, "C"));
    user.key("ctrl shift S");
    user.clickInto(user.find(JTextField.class, "Database"));
    user.type("Other");
    user.key("ENTER");
    user.find(JLabel.class, "the question", one -> one.getText() != null
        && one.getText().startsWith("Replace the outline Test.Other with its 6 members?"));
    open.press(user, "Cancel");
    user.click(open.tree, user.row(open.tree, "C"));
    open.menu(user, "Outline", "Restructure \u2026");
    open.press(user, "Save and Restructure");
    status("Restructured Test.Test");
    expectSaved("Test", "Product(A B C D Last)");

    user.click(open.tree, user.row(open.tree, "Last"));
    user.key("DELETE");
    open.expect(user, "Product(A B C D)");
    user.key("ctrl W");
    open.press(user, "Cancel");
    user.click(open.tree, user.row(open.tree, "D"));
    user.key("ctrl W");
    open.press(user, "Save");
    user.waitFor("the window to close", () -> !open.window.frame.isDisplayable());
  }

  @Test
  public void aNewDatabaseComesFromTheListAndDiscardedWorkDoesNotStay() throws Exception {
    RobotUser.onEventThread(() -> open.editor = new Editor(open.store));
    SwingUtilities.invokeLater(() -> open.editor.choose());
    open.press(user, "New \u2026");
    user.clickInto(user.find(JTextField.class, "Database"));
    user.type("a/b");
    user.find(JLabel.class, "the refusal",
        one -> one.getText() != null && one.getText().startsWith("A name has no / or"));
    user.key("ctrl A");
    user.type("Fresh");
    user.key("ENTER");
    user.waitFor("the window", () -> open.editor.windows.size() == 1
        && open.editor.windows.get(0).frame.isShowing());
    open.window = open.editor.windows.get(0);
    open.tree = open.window.tree;
    open.workspace = open.window.workspace;
    assertThat(open.workspace.name(), containsString("Test.Fresh"));
    open.menu(user, "Edit", "Add Dimension");
    open.name(user, "Year");
    open.expect(user, "Year");
    user.key("ctrl W");
    open.press(user, "Discard");
    user.waitFor("the window to close", () -> !open.window.frame.isDisplayable());
  }
}
