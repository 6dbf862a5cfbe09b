package com.olvane.kep.olvane.editor;

import static org.hamcrest.CoreMatchers.startsWith;
import static org.hamcrest.MatcherAssert.assertThat;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertNull;
import static org.junit.Assert.assertTrue;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NewMember;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Place;
import java.awt.Rectangle;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.Arrays;
import java.util.function.Function;
import javax.swing.JButton;
import javax.swing.JComboBox;
import javax.swing.JLabel;
import javax.swing.JTabbedPane;
import javax.swing.JTable;
import javax.swing.JTextField;
import javax.swing.text.JTextComponent;
import org.junit.Rule;
import org.junit.Test;
import org.junit.rules.RuleChain;

/** What is beside the tree: details, dimension, settings, alias tables, picture. */
public class PanesTest {
  private final WindowRule screen = new WindowRule();
  private final WindowOutline open = new WindowOutline();
  @Rule public final RuleChain rules = RuleChain.outerRule(screen).around(open);

  private final RobotUser user = screen.user;

  /** Opens Product(Drinks(Cola Tea)), with a table of French aliases. */
  private void openSample() throws Exception {
    try (Outline outline = open.store.edit("Test", "Test")) {
      outline.create(Place.firstDimension(), new NewMember("Product").add(new NewMember("Drinks")
          .add(new NewMember("Cola")).add(new NewMember("Tea green"))));
      outline.aliasTables().create("French");
      outline.save();
    }
    open.open(user);
  }

  private Outline outline() {
    return open.workspace.outline;
  }

  private Member read(String name) {
    return outline().find(name, MemberParts.all(outline())).get();
  }

  private void select(String... names) {
    int[] handles = Arrays.stream(names)
        .mapToInt(name -> outline().find(name).get().handle()).toArray();
    RobotUser.onEventThread(() -> {
      open.workspace.read(
          () -> outline().read(handles, Details.NONE), open.workspace::select);
      return null;
    });
    String title = names.length == 1 ? names[0] : names.length + " members";
    user.find(JLabel.class, "the details of " + title, one -> title.equals(one.getText()));
  }

  private void pane(String title) {
    JTabbedPane tabs = user.find(JTabbedPane.class, "Panes");
    user.click(tabs, RobotUser.onEventThread(() -> tabs.getBoundsAt(tabs.indexOfTab(title))));
  }

  private void type(String field, String text) {
    user.clickInto(user.find(JTextField.class, field));
    user.key("ctrl A");
    user.type(text);
  }

  /** Chooses by keyboard: opens the list, goes so far down, or up, and takes it. */
  private void choose(String name, int down) {
    JComboBox<?> box = user.find(JComboBox.class, name);
    user.click(box);
    user.waitFor("the list of " + name, box::isPopupVisible);
    for (int i = 0; i < Math.abs(down); i++) {
      user.key(down < 0 ? "UP" : "DOWN");
    }
    user.key("ENTER");
  }

  /** Waits for a state that an edit leads to, then undoes and repeats the edit. */
  private void expect(Object before, Object after, Function<Outline, Object> state) {
    user.waitFor(after + "", () -> after.equals(now(state)));
    open.tree.requestFocusInWindow();
    user.waitFor("the keyboard in the tree", open.tree::isFocusOwner);
    user.key("ctrl Z");
    user.waitFor(before + " after undo", () -> before.equals(now(state)));
    user.key("ctrl Y");
    user.waitFor(after + " after redo", () -> after.equals(now(state)));
  }

  private Object now(Function<Outline, Object> state) {
    return state.apply(outline());
  }

  @Test
  public void detailsAreChangedAndRefusedWhereTheyAreTyped() throws Exception {
    openSample();
    select("Cola");
    choose("Properties Consolidation", 1);
    expect("ADD", "SUBTRACT", outline -> read("Cola").consolidation().name());
    JComboBox<?> storage = user.find(JComboBox.class, "Properties Storage");
    Object before = storage.getSelectedItem();
    storage.requestFocusInWindow();
    user.waitFor("the keyboard in the choice", storage::isFocusOwner);
    user.type("shared");
    assertThat(storage.getSelectedItem().toString(), startsWith("shared"));
    assertEquals("typed, not taken", 1, open.workspace.history.done);
    user.key("ctrl Z");
    assertEquals("given up", before, storage.getSelectedItem());
    assertEquals("no edit was taken back", 1, open.workspace.history.done);
    type("Aliases French", "\u53ef\u53e3\u53ef\u4e50");
    user.key("ENTER");
    expect("", "\u53ef\u53e3\u53ef\u4e50", outline -> read("Cola").alias("French"));

    String tooLong = new String(new char[129]).replace('\0', '\u00e9');
    JTextComponent comment = user.find(JTextComponent.class, "Comment");
    user.clickInto(comment);
    user.type("ab");
    for (int i = 0; i < 3; i++) {
      user.key("ctrl Z");
    }
    user.key("ctrl Y");
    assertEquals("what is typed is taken back by itself", "a", comment.getText());
    user.key("ESCAPE");
    assertEquals("\u53ef\u53e3\u53ef\u4e50", read("Cola").alias("French"));
    user.type(tooLong);
    user.find(JLabel.class, "the limit",
        one -> "At most 257 bytes fit; these are 258.".equals(one.getText()));
    user.click(open.tree, user.row(open.tree, "Product"));
    open.press(user, "Go Back to the Text");
    user.find(JLabel.class, "the details", one -> "Cola".equals(one.getText()));
    assertEquals("the text is kept", tooLong, comment.getText());
    user.clickInto(comment);
    user.key("ctrl S");
    open.press(user, "Go Back to the Text");
    assertTrue("nothing is saved without it", open.workspace.history.dirty());
    user.clickInto(comment);
    user.key("ctrl END");
    user.key("ctrl ENTER");
    user.key("BACK_SPACE");
    assertEquals("nothing of it was taken", "", read("Cola").comment());
    user.key("ctrl ENTER");
    expect("", tooLong.substring(1), outline -> read("Cola").comment());

    select("Cola", "Tea green");
    JTextComponent udas = user.find(JTextComponent.class, "User-defined attributes of all (one a line)");
    user.clickInto(udas);
    user.type("Cold");
    user.key("ENTER");
    user.type(tooLong.substring(0, 50));
    user.find(JLabel.class, "the line that is too long",
        one -> "Line 2: At most 80 bytes fit; these are 100.".equals(one.getText()));
    user.key("ctrl Z");
    user.key("BACK_SPACE");
    user.key("ctrl ENTER");
    expect("[][]", "[Cold][Cold]",
        outline -> "" + read("Cola").udas() + read("Tea green").udas());
    choose("Properties Two-pass calculation", -1);
    expect(false, true,
        outline -> read("Cola").isTwoPass() && read("Tea green").isTwoPass());
  }

  @Test
  public void aClickInTheTreeEndsWhatIsEditedBesideIt() throws Exception {
    openSample();
    select("Product");
    JComboBox<?> box = user.find(JComboBox.class, "Properties Consolidation");
    user.click(box);
    user.waitFor("the list", box::isPopupVisible);
    user.key("DOWN");
    user.click(open.tree, user.row(open.tree, "Product"));
    user.waitFor("the list to go", () -> !box.isPopupVisible());
    user.click(open.tree, user.row(open.tree, "Product"));
    user.waitFor("the keyboard in the tree", open.tree::isFocusOwner);
    assertNull("nothing was taken", open.workspace.history.toUndo());
    user.key("RIGHT");
    user.click(open.tree, user.row(open.tree, "Drinks"));
    user.find(JLabel.class, "the details", one -> "Drinks".equals(one.getText()));
    type("Properties Name", "Beverages");
    user.click(open.tree, user.row(open.tree, "Product"));
    user.waitFor("the new name", () -> outline().find("Beverages").isPresent());
    user.waitFor("the keyboard in the tree", open.tree::isFocusOwner);
    assertEquals("Product", open.workspace.selection().get(0).name());
  }

  @Test
  public void formulasCompleteNames() throws Exception {
    openSample();
    select("Drinks");
    JTextComponent formula = user.find(JTextComponent.class, "Formula");
    user.clickInto(formula);
    user.type("Cola + Te");
    user.key("ctrl SPACE");
    user.waitFor("the only name that begins so",
        () -> formula.getText().equals("Cola + \"Tea green\""));
    user.type(";");
    user.key("ctrl S");
    user.waitFor("the formula to be saved", () -> open.workspace.history.done == 1
        && !open.workspace.history.dirty());
    pane("Dimension");
    expect("", "Cola + \"Tea green\";", outline -> read("Drinks").formula());
    pane("Details");
    select("Cola");
    user.clickInto(formula);
    user.type("1");
    user.key("ctrl Z");
    user.key("ctrl Z");
    assertEquals("not the formula that was shown before", "", formula.getText());
    pane("Dimension");

    type("Generations 2", "Families");
    user.key("ENTER");
    expect("[]", "[Families]",
        outline -> outline.generations().given(outline.find("Product").get()).toString());
    pane("Settings");
    type("Attributes Member name for true", "");
    user.key("BACK_SPACE");
    user.find(JLabel.class, "the refusal", one -> "A name is needed here.".equals(one.getText()));
    user.type("Yes");
    user.key("ENTER");
    expect("True", "Yes", outline -> outline.attributes().settings().getTrueText());
  }

  @Test
  public void aliasTablesAreMadeAndImported() throws Exception {
    openSample();
    Path file = Paths.get(open.folder, "french.alt");
    Files.write(file, Arrays.asList("$ALT_NAME  'French'", "\"Cola\"   \"Coca\"",
        "\"Nowhere\"   \"Nulle part\"", "$END"), StandardCharsets.UTF_8);
    javax.swing.SwingUtilities.invokeLater(
        () -> open.window.commands.get("Alias Tables \u2026").actionPerformed(null));
    JTable tables = user.find(JTable.class, "Alias tables");
    user.click(button("New \u2026"));
    JTextField name = user.find(JTextField.class, "Name of the table");
    user.clickInto(name);
    user.type("French");
    user.find(JLabel.class, "the refusal",
        one -> "There is a table of this name.".equals(one.getText()));
    user.key("ctrl A");
    user.type("Short");
    user.click(button("Create"));
    user.waitFor("the new table", () -> tables.getRowCount() == 3);
    user.click(button("Import \u2026"));
    JTextField path = user.find(JTextField.class, "the name of the file",
        one -> one.isEditable() && one.getName() == null);
    user.clickInto(path);
    user.key("ctrl A");
    user.type(file.toAbsolutePath().toString());
    user.key("ENTER");
    user.find(JLabel.class, "what will apply",
        one -> one.getText().startsWith("Of its lines: will be set: 1; no such member: 1."));
    assertEquals("nothing has been changed yet", "", read("Cola").alias("French"));
    user.click(button("Import"));
    user.find(JLabel.class, "what was imported",
        one -> "Aliases imported into the table French: 1.".equals(one.getText()));
    user.click(button("OK"));
    assertEquals("Coca", read("Cola").alias("French"));
    user.click(button("Close"));
    user.waitFor("the dialog to close", () -> !tables.isShowing());
    user.click(open.tree, user.row(open.tree, "Product"));
    user.waitFor("the keyboard in the tree", open.tree::isFocusOwner);
    user.key("ctrl Z");
    user.key("ctrl Z");
    user.waitFor("the tables as they were",
        () -> outline().aliasTables().names().toString().equals("[Default, French]")
            && read("Cola").alias("French").isEmpty());
  }

  private JButton button(String text) {
    return user.find(JButton.class, "the button " + text,
        one -> text.equals(one.getText()) && one.isEnabled());
  }

  @Test
  public void aClickInThePictureSelects() throws Exception {
    openSample();
    pane("Picture");
    PictureView view = user.find(PictureView.class, "Picture of the outline");
    user.waitFor("the picture", () -> view.picture.count == 4);
    int width = view.getWidth() / 3;
    user.click(view, new Rectangle(2 * width, view.getHeight() / 2 - 20, width, 10));
    user.waitFor("a leaf to be selected", () -> open.workspace.selection().size() == 1
        && open.workspace.selection().get(0).name().equals("Tea green"));
    user.key("LEFT");
    user.waitFor("its parent to be selected",
        () -> open.workspace.selection().get(0).name().equals("Drinks"));
    user.key("ENTER");
    user.waitFor("the parent to fill the picture", () -> view.root == 1);
    RobotUser.onEventThread(() -> {
      Theme.install(Palette.DARK);
      return null;
    });
    assertTrue(view.isShowing());
  }
}
