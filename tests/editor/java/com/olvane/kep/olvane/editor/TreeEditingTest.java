package com.olvane.kep.olvane.editor;

import static org.junit.Assert.assertEquals;

import com.olvane.kep.olvane.outline.Outline;
import java.awt.Rectangle;
import java.util.ArrayList;
import java.util.List;
import org.junit.Rule;
import org.junit.Test;
import org.junit.rules.RuleChain;

/** An outline made and changed in the tree, by mouse and keyboard only. */
public class TreeEditingTest {
  private final WindowRule screen = new WindowRule();
  private final WindowOutline open = new WindowOutline();
  @Rule public final RuleChain rules = RuleChain.outerRule(screen).around(open);

  private final RobotUser user = screen.user;
  /** What the outline was like after each step. */
  private final List<String> states = new ArrayList<>();

  private void expect(String shape) {
    open.expect(user, shape);
    states.add(shape);
  }

  private void name(String name) {
    open.name(user, name);
  }

  private void select(String member) {
    user.click(open.tree, user.row(open.tree, member));
    user.waitFor(member + " to be selected", () -> open.workspace.selection().size() == 1
        && open.workspace.selection().get(0).name().equals(member));
  }

  private void drag(String member, String to, int edge) {
    Rectangle target = user.row(open.tree, to);
    target.y += edge * (target.height - 2);
    target.height = edge == 0 ? target.height : 4;
    user.drag(open.tree, user.row(open.tree, member), open.tree, target);
  }

  private void walkHistory() {
    for (int i = states.size() - 2; i >= 0; i--) {
      user.key("ctrl Z");
      open.expect(user, states.get(i));
    }
    for (int i = 1; i < states.size(); i++) {
      user.key("ctrl Y");
      open.expect(user, states.get(i));
    }
  }

  @Test
  public void anOutlineIsBuiltChangedUndoneAndSaved() throws Exception {
    open.open(user);
    expect("");
    open.menu(user, "Edit", "Add Dimension");
    name("Product");
    expect("Product");
    user.key("ctrl shift N");
    name("Drinks");
    expect("Product(Drinks)");
    user.key("ctrl N");
    name("\u98df\u54c1 \u05de\u05d6\u05d5\u05df");
    expect("Product(Drinks \u98df\u54c1 \u05de\u05d6\u05d5\u05df)");
    user.key("F2");
    name("Food");
    expect("Product(Drinks Food)");
    select("Drinks");
    user.key("ctrl shift N");
    name("Tea");
    user.key("ctrl N");
    name("Cola");
    states.add("Product(Drinks(Tea) Food)");
    expect("Product(Drinks(Tea Cola) Food)");
    user.key("alt UP");
    expect("Product(Drinks(Cola Tea) Food)");
    user.key("alt LEFT");
    expect("Product(Drinks(Tea) Cola Food)");
    user.key("alt DOWN");
    expect("Product(Drinks(Tea) Food Cola)");
    user.key("alt RIGHT");
    expect("Product(Drinks(Tea) Food(Cola))");
    drag("Cola", "Drinks", 0);
    expect("Product(Drinks(Tea Cola) Food)");
    drag("Cola", "Tea", 0);
    expect("Product(Drinks(Tea(Cola)) Food)");
    select("Cola");
    user.key("ctrl X");
    select("Food");
    user.key("ctrl V");
    expect("Product(Drinks(Tea) Food(Cola))");
    select("Drinks");
    user.key("ctrl C");
    select("Food");
    user.key("ctrl V");
    expect("Product(Drinks(Tea) Food(Cola Drinks(Tea)))");
    select("Cola");
    user.key("ctrl C");
    user.key("ctrl shift V");
    open.expect(user, "Product(Drinks(Tea) Food(Cola Cola 2 Drinks(Tea)))");
    user.key("ctrl N");
    user.waitFor("a name to be typed", open.tree::isEditing);
    user.key("ESCAPE");
    open.expect(user, "Product(Drinks(Tea) Food(Cola Cola 2 Drinks(Tea)))");
    user.key("ctrl Z");
    open.expect(user, "Product(Drinks(Tea) Food(Cola Drinks(Tea)))");
    select("Food");
    open.menu(user, "Edit", "Sort Children Z to A");
    expect("Product(Drinks(Tea) Food(Drinks(Tea) Cola))");
    select("Food");
    user.key("DELETE");
    open.press(user, "Delete");
    expect("Product(Drinks(Tea))");
    // Nobody manages the windows here, so the keyboard goes where the mouse clicks.
    select("Drinks");
    user.waitFor("the keyboard back in the tree", () -> open.tree.isFocusOwner());
    walkHistory();

    user.key("ctrl S");
    user.waitFor("it to be saved", () -> !open.workspace.history.dirty());
    try (Outline saved = open.store.browse("Test", "Test")) {
      assertEquals("Product(Drinks(Tea))", WindowOutline.shape(saved));
    }
  }
}
