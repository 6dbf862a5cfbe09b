package com.olvane.kep.olvane.editor;

import java.awt.BorderLayout;
import java.awt.Component;
import java.awt.Dimension;
import java.awt.KeyboardFocusManager;
import java.awt.Toolkit;
import java.awt.event.WindowAdapter;
import java.awt.event.WindowEvent;
import java.util.LinkedHashMap;
import java.util.Map;
import javax.swing.Action;
import javax.swing.BorderFactory;
import javax.swing.JComponent;
import javax.swing.JFrame;
import javax.swing.JMenu;
import javax.swing.JMenuBar;
import javax.swing.JOptionPane;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import javax.swing.JSplitPane;
import javax.swing.JTabbedPane;
import javax.swing.SwingUtilities;
import javax.swing.WindowConstants;

/** The frame: menus, search and tree on the left, tabs on the right, the status line below. */
final class EditorWindow {
  private static final String TITLE = "Outline Editor";
  private static final int WIDTH = 1280;
  private static final int HEIGHT = 800;
  private static final int TREE_WIDTH = 520;

  private final Editor editor;
  private final Workspace workspace;
  private final JFrame frame = new JFrame();
  private final Commands commands = new Commands(this::isBesideTree);
  private final JMenuBar menus = new JMenuBar();
  private final Map<String, JMenu> menusByName = new LinkedHashMap<>();
  private final JTabbedPane tabs = new JTabbedPane();
  private final JSplitPane split = new JSplitPane(JSplitPane.HORIZONTAL_SPLIT);
  private final StatusLine status;
  private final OutlineTree tree;
  private final FileCommands files;
  private final AutoKeep autoKeep;
  /** Whether it is being asked what to do before closing: a key may be held too long. */
  private boolean closing;

  /** Makes the window of an open outline; {@link #show} shows it. */
  EditorWindow(Editor editor, Workspace workspace) {
    this.editor = editor;
    this.workspace = workspace;
    status = new StatusLine(workspace);
    tree = new OutlineTree(workspace);
    frame.setDefaultCloseOperation(WindowConstants.DO_NOTHING_ON_CLOSE);
    frame.setJMenuBar(menus);
    for (String menu : new String[] {"File", "Edit", "Search", "View", "Outline"}) {
      menu(menu);
    }
    workspace.selected.hear(members -> commands.update());
    workspace.busy.hear(busy -> commands.update());
    workspace.historyChanged.hear(history -> {
      commands.update();
      setTitle();
    });
    workspace.failed.hear(failure ->
        say(failure.getMessage() == null ? failure.toString() : failure.getMessage()));
    FindingsPane findings = new FindingsPane(workspace);
    files = new FileCommands(this, findings);
    addHistoryCommands();
    new TreeCommands(this, tree);
    new ViewCommands(this);
    SearchTask search = new SearchTask(workspace);
    layOut(new SearchBar(this, search));
    tree.complaint = status::say;
    addPane("Details", new RowsPane(workspace, MemberRows::read));
    addPane("Dimension", new RowsPane(workspace, DimensionRows::read));
    addPane("Picture", new PicturePane(workspace));
    addPane("Settings", new RowsPane(workspace, SettingsRows::read));
    addPane("Hits", new HitsPane(workspace, search));
    addPane("Findings", findings);
    addPane("History", new HistoryPane(workspace));
    autoKeep = new AutoKeep(this);
    setTitle();
  }

  private void layOut(SearchBar search) {
    JScrollPane scroll = new JScrollPane(tree);
    scroll.setBorder(BorderFactory.createEmptyBorder());
    JPanel left = new JPanel(new BorderLayout());
    left.add(search, BorderLayout.NORTH);
    left.add(scroll);
    split.setLeftComponent(left);
    split.setRightComponent(tabs);
    split.setBorder(BorderFactory.createEmptyBorder());
    tabs.setName("panes");
    tabs.getAccessibleContext().setAccessibleName("Panes");
    frame.add(split, BorderLayout.CENTER);
    frame.add(status, BorderLayout.SOUTH);
    frame.addWindowListener(new WindowAdapter() {
      @Override
      public void windowClosing(WindowEvent event) {
        close();
      }
    });
    Dimension screen = Toolkit.getDefaultToolkit().getScreenSize();
    UserSettings settings = editor.settings();
    frame.setSize(
        Math.min(settings.number("window.width", WIDTH), screen.width),
        Math.min(settings.number("window.height", HEIGHT), screen.height));
    split.setDividerLocation(settings.number("tree.width", TREE_WIDTH));
  }

  private void addHistoryCommands() {
    History history = workspace.history();
    addToMenu("Edit", commands.add("undo", "Undo", "ctrl Z", "Take the last edit back",
        () -> history.toUndo() != null, workspace::undo));
    addToMenu("Edit", commands.add("redo", "Redo", "ctrl Y", "Do the edit again",
        () -> history.toRedo() != null, workspace::redo));
    addSeparator("Edit");
  }

  Editor editor() {
    return editor;
  }

  Workspace workspace() {
    return workspace;
  }

  JFrame frame() {
    return frame;
  }

  Commands commands() {
    return commands;
  }

  OutlineTree tree() {
    return tree;
  }

  private boolean isBesideTree() {
    Component focus = KeyboardFocusManager.getCurrentKeyboardFocusManager().getFocusOwner();
    return focus != null && SwingUtilities.isDescendingFrom(focus, tabs);
  }

  // ---- For those who fill the window ----

  /** Adds a tab on the right. */
  void addPane(String title, JComponent pane) {
    tabs.addTab(title, pane);
  }

  /** Shows a tab. */
  void showPane(JComponent pane) {
    tabs.setSelectedComponent(pane);
  }

  /** Adds a command to a menu, which is made when it is first named. */
  void addToMenu(String menu, Action command) {
    menu(menu).add(command);
  }

  /** Ends a group of commands in a menu. */
  void addSeparator(String menu) {
    menu(menu).addSeparator();
  }

  /** The menu of a name, made when it is first asked for. */
  JMenu menu(String name) {
    return menusByName.computeIfAbsent(name, n -> {
      JMenu made = new JMenu(n);
      made.setMnemonic(n.charAt(0));
      menus.add(made);
      return made;
    });
  }

  // ---- Telling and asking ----

  private void setTitle() {
    frame.setTitle((workspace.dirty() ? "* " : "") + workspace.name() + " \u2013 " + TITLE);
  }

  /** Shows a sentence in a dialog. */
  void say(String sentence) {
    JOptionPane.showMessageDialog(frame, sentence, TITLE, JOptionPane.WARNING_MESSAGE);
  }

  /** Shows a sentence in the status line for a while. */
  void status(String sentence) {
    status.say(sentence);
  }

  /** Asks whether to do something; {@code yes} is the name of the button that does it. */
  boolean confirm(String question, String yes) {
    return ask(question, yes, "Cancel") == 0;
  }

  private int ask(String question, Object... answers) {
    return JOptionPane.showOptionDialog(frame, question, TITLE, JOptionPane.DEFAULT_OPTION,
        JOptionPane.QUESTION_MESSAGE, null, answers, answers[0]);
  }

  // ---- Showing and closing ----

  /** Shows the window. */
  void show() {
    commands.update();
    frame.setVisible(true);
    tree.requestFocusInWindow();
  }

  /** Lets what is being typed become an edit before something is done with the outline. */
  void settle(Runnable then) {
    tree.stopEditing();
    tree.requestFocusInWindow();
    // The field hears of losing the keyboard with an event, and then queues its edit.
    SwingUtilities.invokeLater(() -> SwingUtilities.invokeLater(then));
  }

  /** Closes the window; asks what to do with unsaved work. */
  void close() {
    if (closing) {
      return;
    }
    closing = true;
    settle(() -> {
      int answer = !workspace.dirty() ? 1
          : ask("There are unsaved changes in " + workspace.name() + ".",
              "Save", "Discard", "Cancel");
      if (answer == 0) {
        closing = false;
        workspace.save(this::closeNow);
      } else if (answer == 1) {
        closeNow();
      } else {
        closing = false;
      }
    });
  }

  private void closeNow() {
    autoKeep.stop();
    UserSettings settings = editor.settings();
    settings.put("window.width", frame.getWidth());
    settings.put("window.height", frame.getHeight());
    settings.put("tree.width", split.getDividerLocation());
    workspace.close(() -> {
      frame.dispose();
      editor.closed(this);
    });
  }
}
