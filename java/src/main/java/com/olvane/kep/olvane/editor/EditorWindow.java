package com.olvane.kep.olvane.editor;

import java.awt.BorderLayout;
import java.awt.Component;
import java.awt.Dimension;
import java.awt.KeyboardFocusManager;
import java.awt.Toolkit;
import java.awt.event.WindowAdapter;
import java.awt.event.WindowEvent;
import java.util.HashSet;
import java.util.Optional;
import java.util.Set;
import java.util.stream.Stream;
import javax.swing.BorderFactory;
import javax.swing.JFrame;
import javax.swing.JMenu;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import javax.swing.JSplitPane;
import javax.swing.JTabbedPane;
import javax.swing.SwingUtilities;
import javax.swing.WindowConstants;

/** The frame: menus, search and tree on the left, tabs on the right, the status line below. */
final class EditorWindow {
  private static final int WIDTH = 1280;
  private static final int HEIGHT = 800;
  private static final int TREE_WIDTH = 520;

  final Editor editor;
  final Workspace workspace;
  final JFrame frame = new JFrame();
  final Commands commands =
      new Commands(this::isBesideTree, "File", "Edit", "Search", "View", "Outline", "Help");
  private final JTabbedPane tabs = new JTabbedPane();
  private final JSplitPane split = new JSplitPane(JSplitPane.HORIZONTAL_SPLIT);
  private final StatusLine status;
  final OutlineTree tree;
  private final AutoKeep autoKeep;
  /** What failed and is being shown. */
  private final Set<String> said = new HashSet<>();
  /** Whether it is being asked what to do before closing: a key may be held too long. */
  private boolean closing;

  /** Makes the window of an outline; {@link #show} shows it, or its frame is to be disposed of. */
  EditorWindow(Editor editor, Workspace workspace) {
    this.editor = editor;
    this.workspace = workspace;
    status = new StatusLine(workspace);
    tree = new OutlineTree(workspace);
    tree.complaint = status::say;
    workspace.selected.hear(members -> commands.update());
    workspace.busy.hear(busy -> commands.update());
    workspace.historyChanged.hear(history -> {
      commands.update();
      setTitle();
    });
    SearchTask search = new SearchTask(workspace);
    JPanel findings = Lists.findings(workspace);
    workspace.verified.hear(found -> tabs.setSelectedComponent(findings));
    WindowCommands files = new WindowCommands(this);
    workspace.failed.hear(failure -> {
      if (!Workspace.isLockGone(failure)) {
        say(failure);
      } else if (!closing) {
        files.offerLock();
      }
    });
    addHistoryCommands();
    new TreeCommands(this);
    layOut(new SearchBar(this, search).panel);
    tabs.addTab("Details", new RowsPane(workspace, MemberRows::read));
    tabs.addTab("Dimension", new RowsPane(workspace, DimensionRows::read));
    tabs.addTab("Picture", new PicturePane(workspace));
    tabs.addTab("Settings", new RowsPane(workspace, SettingsRows::read));
    tabs.addTab("Hits", new Lists.Hits(workspace, search).panel);
    tabs.addTab("Findings", findings);
    tabs.addTab("History", Lists.history(workspace));
    autoKeep = new AutoKeep(this);
    setTitle();
    // What the window system does for it is done while the outline is being opened.
    frame.setBackground(Theme.palette().surface);
    frame.addNotify();
    frame.validate();
  }

  private void layOut(JPanel search) {
    JPanel left = new JPanel(new BorderLayout());
    left.add(search, BorderLayout.NORTH);
    JScrollPane scroll = new JScrollPane(tree);
    scroll.setBorder(BorderFactory.createEmptyBorder());
    left.add(scroll);
    split.setLeftComponent(left);
    split.setRightComponent(tabs);
    split.setBorder(BorderFactory.createEmptyBorder());
    tabs.setName("panes");
    tabs.getAccessibleContext().setAccessibleName("Panes");
    frame.setJMenuBar(commands.bar);
    frame.add(split, BorderLayout.CENTER);
    frame.add(status, BorderLayout.SOUTH);
    frame.setDefaultCloseOperation(WindowConstants.DO_NOTHING_ON_CLOSE);
    frame.addWindowListener(new WindowAdapter() {
      @Override
      public void windowClosing(WindowEvent event) {
        close();
      }
    });
    Dimension screen = Toolkit.getDefaultToolkit().getScreenSize();
    UserSettings settings = editor.settings;
    frame.setSize(
        Math.min(settings.number("window.width", WIDTH), screen.width),
        Math.min(settings.number("window.height", HEIGHT), screen.height));
    // The same share of a window that has become narrower.
    split.setDividerLocation(settings.number("tree.width", TREE_WIDTH) * frame.getWidth()
        / settings.number("window.width", WIDTH));
    split.setResizeWeight(0.4);
    tabs.setTabLayoutPolicy(JTabbedPane.SCROLL_TAB_LAYOUT);
  }

  private void addHistoryCommands() {
    JMenu menu = commands.menu("Edit");
    History history = workspace.history;
    commands.add(menu, "Undo", "ctrl Z", "Take the last edit back", workspace::undo)
        .when(() -> history.toUndo() != null);
    commands.add(menu, "Redo", "ctrl Y", "Do the edit again", workspace::redo)
        .when(() -> history.toRedo() != null);
    menu.addSeparator();
  }

  /** Shows what failed, once: the same may come again while it is read. */
  private void say(Exception failure) {
    String sentence = Ask.sentence(failure);
    if (said.add(sentence)) {
      Ask.say(frame, sentence);
      said.remove(sentence);
    }
  }

  private boolean isBesideTree() {
    Component focus = KeyboardFocusManager.getCurrentKeyboardFocusManager().getFocusOwner();
    return focus != null && SwingUtilities.isDescendingFrom(focus, tabs);
  }

  private void setTitle() {
    String mark = workspace.history.dirty() ? "* " : "";
    frame.setTitle(mark + workspace.name() + " \u2013 " + Ask.TITLE);
  }

  /** Shows a sentence in the status line for a while. */
  void status(String sentence) {
    status.say(sentence);
  }

  /** Shows the window. */
  void show() {
    commands.update();
    frame.setVisible(true);
    tree.requestFocusInWindow();
  }

  /**
   * Lets what is being typed become an edit before something is done with the outline; asks where it
   * was refused.
   */
  void settle(Runnable then) {
    tree.stopEditing();
    tree.requestFocusInWindow();
    // The field hears of losing the keyboard with an event, and then queues its edit.
    SwingUtilities.invokeLater(() -> SwingUtilities.invokeLater(() -> workspace.afterWork(() -> {
      Optional<Component> refused = Stream.of(tabs.getComponents()).filter(
          pane -> pane instanceof RowsPane && !((RowsPane) pane).canBeLeft()).findFirst();
      refused.ifPresent(tabs::setSelectedComponent);
      closing &= !refused.isPresent();
      if (!refused.isPresent()) {
        then.run();
      }
    })));
  }

  /** Closes the window; asks what to do with unsaved work. */
  void close() {
    if (closing) {
      return;
    }
    closing = true;
    settle(() -> {
      int answer = !workspace.history.dirty() ? 1
          : Ask.choose(frame, "There are unsaved changes in " + workspace.name() + ".",
              "Save", "Discard", "Cancel");
      closing = answer == 1;
      if (answer == 0) {
        workspace.save(this::closeNow);
      } else if (answer == 1) {
        closeNow();
      }
    });
  }

  private void closeNow() {
    autoKeep.stop();
    UserSettings settings = editor.settings;
    settings.put("window.width", frame.getWidth());
    settings.put("window.height", frame.getHeight());
    settings.put("tree.width", split.getDividerLocation());
    workspace.close(() -> {
      frame.dispose();
      editor.closed(this);
    });
  }
}
