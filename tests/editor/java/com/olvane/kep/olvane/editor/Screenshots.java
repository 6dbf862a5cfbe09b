package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Store;
import java.awt.Graphics2D;
import java.awt.Rectangle;
import java.awt.Window;
import java.awt.image.BufferedImage;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.Collections;
import javax.imageio.ImageIO;
import javax.swing.JComponent;
import javax.swing.JTabbedPane;
import javax.swing.JTree;
import javax.swing.RootPaneContainer;
import javax.swing.SwingUtilities;

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
        () -> editor.windows().isEmpty() ? null : editor.windows().get(0));
    workspace = window.workspace();
  }

  private void takeAll() throws IOException {
    select("JP");
    take("window");
    select("Profit");
    take("formula");
    pane("Dimension");
    select("Year");
    take("dimension");
    pane("Picture");
    select("FR");
    take("picture");
    pane("Settings");
    take("settings");
    // A dialog holds the call that opens it until it closes.
    SwingUtilities.invokeLater(
        () -> window.commands().get("alias-tables").actionPerformed(null));
    user.find(JComponent.class, "Alias tables");
    take("alias-tables");
    user.key("ESCAPE");
  }

  /** Selects a member and waits until the panes show it. */
  private void select(String name) {
    JTree tree = window.tree();
    workspace.read(() -> Collections.singletonList(workspace.outline().find(name).get()),
        workspace::select);
    user.waitFor(name + " to be selected", () -> workspace.selection().size() == 1
        && workspace.selection().get(0).name().equals(name) && tree.isShowing());
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
