package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Store;
import java.awt.Graphics2D;
import java.awt.Rectangle;
import java.awt.Window;
import java.awt.image.BufferedImage;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.Arrays;
import java.util.Collections;
import java.util.stream.Collectors;
import javax.imageio.ImageIO;
import javax.swing.JComponent;
import javax.swing.JTabbedPane;
import javax.swing.JTable;
import javax.swing.RootPaneContainer;
import javax.swing.SwingUtilities;
import javax.swing.text.JTextComponent;

/** Takes pictures of each view of the editor, on a copy of the demonstration's outline. */
public final class Screenshots {
  private final RobotUser user = new RobotUser();
  private final Path folder;
  private final String suffix;
  private final int scale;
  private EditorWindow window;
  private Workspace workspace;

  private Screenshots(Path folder, Palette palette, int scale) {
    this.folder = folder;
    this.scale = scale;
    suffix = "-" + palette.name().toLowerCase(java.util.Locale.ROOT)
        + (scale == 1 ? "" : "-" + 100 * scale);
  }

  /**
   * Takes the pictures.
   *
   * @param arguments the store, the folder for the pictures, LIGHT or DARK, the scale (1 or 2)
   * @throws IOException if a picture cannot be written
   */
  public static void main(String[] arguments) throws IOException {
    Theme.prepare();
    Palette palette = Palette.valueOf(arguments[2]);
    Path folder = Files.createDirectories(Paths.get(arguments[1]));
    Screenshots shots = new Screenshots(folder, palette, Integer.parseInt(arguments[3]));
    Store store = Store.open(arguments[0], "anna");
    int status = 1;
    try {
      shots.open(store, palette);
      shots.takeAll();
      status = 0;
    } finally {
      System.exit(status);
    }
  }

  private void open(Store store, Palette palette) throws IOException {
    Editor editor = RobotUser.onEventThread(() -> {
      Editor made = new Editor(store);
      Theme.install(palette);
      made.choose();
      return made;
    });
    take("databases");
    RobotUser.onEventThread(() -> {
      editor.open("Demo", "World", null, opened -> { });
      return null;
    });
    window = user.waitForOne("the window",
        () -> editor.windows.isEmpty() ? null : editor.windows.get(0));
    workspace = window.workspace;
  }

  private void takeAll() throws IOException {
    select("JP");
    take("window");
    select("JP", "FR", "DE");
    take("several");
    select("Profit");
    JTextComponent formula = user.find(JTextComponent.class, "Formula");
    user.click(formula);
    user.key("ctrl END");
    user.type(" /* checked */ @ROUND(\"Profit\", 2) - Co");
    user.key("ctrl SPACE");
    user.waitFor("the list of names", () -> Window.getWindows().length > 2);
    take("formula");
    user.key("ESCAPE");
    user.key("ESCAPE");
    pane("Dimension");
    select("Year");
    take("dimension");
    pane("Picture");
    select("FR");
    take("picture");
    pane("Settings");
    take("settings");
    takeSearch();
    takeEdits();
    takeAliasTables();
  }

  private void takeSearch() throws IOException {
    user.key("ctrl F");
    user.type("north");
    pane("Hits");
    JTable hits = user.find(JTable.class, "hits");
    user.waitFor("hits", () -> hits.getRowCount() > 3);
    take("search");
    user.key("ESCAPE");
  }

  private void takeEdits() throws IOException {
    select("JP");
    edit(MemberEdits.rename(member("JP"), "Japan"));
    edit(MemberEdits.change("Change Japan", Collections.singletonList(member("Japan")),
        japan -> new Changes().formula("@SUM(@CHILDREN(\"Japan\"));").uda("Island")));
    edit(MemberEdits.move(Collections.singletonList(member("JE")),
        Target.before(Ref.to(member("JM")))));
    edit(MemberEdits.delete(Collections.singletonList(member("JO"))));
    pane("History");
    take("history");
    // Two members of one alias in a table: something to be found.
    edit(MemberEdits.change("Change FR", Collections.singletonList(member("FR")),
        france -> new Changes().alias("French", "Japon")));
    RobotUser.onEventThread(() -> {
      window.commands.get("Verify").actionPerformed(null);
      return null;
    });
    pane("Findings");
    take("findings");
  }

  private void takeAliasTables() throws IOException {
    // A dialog holds the call that opens it until it closes.
    SwingUtilities.invokeLater(
        () -> window.commands.get("Alias Tables \u2026").actionPerformed(null));
    user.find(JComponent.class, "Alias tables");
    take("alias-tables");
    user.key("ESCAPE");
    Path path = Files.write(folder.resolve("french.alt"), Arrays.asList("$ALT_NAME  'French'",
        "\"DE\"   \"Allemagne\"", "\"FR\"   \"France\"", "\"JM\"   \"La Jama\u00efque\"",
        "\"Atlantis\"   \"Atlantide\"", "lonely", "$END"));
    AliasFile file = AliasFile.read(path);
    SwingUtilities.invokeLater(
        () -> AliasImportDialog.ask(window.frame, workspace, path, file));
    user.find(JTable.class, "Lines");
    take("import");
    user.key("ESCAPE");
    Files.delete(path);
  }

  private Member member(String name) {
    return workspace.outline.find(name).get();
  }

  private void edit(Edit edit) {
    RobotUser.onEventThread(() -> {
      workspace.edit(edit);
      return null;
    });
    user.waitFor(edit.title(), () -> workspace.history.toUndo() == edit);
  }

  /** Selects members and waits until the panes show them. */
  private void select(String... names) {
    workspace.read(() -> Arrays.stream(names).map(this::member).collect(Collectors.toList()),
        workspace::select);
    user.waitFor(names[0] + " to be selected", () -> !workspace.selection().isEmpty()
        && workspace.selection().get(0).name().equals(names[0])
        && workspace.selection().size() == names.length);
    settle();
  }

  private void pane(String title) {
    JTabbedPane tabs = user.find(JTabbedPane.class, "Panes");
    RobotUser.onEventThread(() -> {
      tabs.setSelectedIndex(tabs.indexOfTab(title));
      return null;
    });
    settle();
  }

  /** Waits until everything that was asked for has been read and drawn. */
  private void settle() {
    if (workspace == null) {
      RobotUser.onEventThread(() -> null);
      return;
    }
    for (int i = 0; i < 5; i++) {
      boolean[] done = {false};
      SwingUtilities.invokeLater(() -> workspace.read(() -> true, read -> done[0] = true));
      user.waitFor("what was asked for", () -> done[0]);
    }
  }

  /** Draws all windows, the newest last. */
  private void take(String name) throws IOException {
    settle();
    BufferedImage image = RobotUser.onEventThread(() -> {
      Rectangle all = new Rectangle(-1, -1);
      for (Window one : Window.getWindows()) {
        // A rectangle of a negative size takes up no room in a union.
        all = one.isShowing() ? all.union(one.getBounds()) : all;
      }
      BufferedImage drawn = new BufferedImage(
          scale * all.width, scale * all.height, BufferedImage.TYPE_INT_RGB);
      for (Window one : Window.getWindows()) {
        if (one.isShowing()) {
          Graphics2D g = drawn.createGraphics();
          g.scale(scale, scale);
          g.translate(one.getX() - all.x, one.getY() - all.y);
          // Not the window itself, which draws a frame around what it shows.
          ((RootPaneContainer) one).getRootPane().printAll(g);
          g.dispose();
        }
      }
      return drawn;
    });
    ImageIO.write(image, "png", folder.resolve(name + suffix + ".png").toFile());
  }
}
