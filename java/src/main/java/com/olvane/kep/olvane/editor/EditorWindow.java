package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Member;
import java.awt.BorderLayout;
import java.awt.Component;
import java.awt.Dimension;
import java.awt.KeyboardFocusManager;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import javax.swing.Action;
import javax.swing.JComponent;
import javax.swing.JFrame;
import javax.swing.JMenu;
import javax.swing.JMenuBar;
import javax.swing.JOptionPane;
import javax.swing.JScrollPane;
import javax.swing.JSplitPane;
import javax.swing.JTabbedPane;
import javax.swing.JToolBar;
import javax.swing.SwingUtilities;
import javax.swing.WindowConstants;

/** The frame: menu, tool bar, the tree on the left, tabs on the right, the status line below. */
final class EditorWindow {
  private final Workspace workspace;
  private final JFrame frame = new JFrame();
  private final Commands commands = new Commands(this::isBesideTree);
  private final JMenuBar menus = new JMenuBar();
  private final Map<String, JMenu> menusByName = new LinkedHashMap<>();
  private final JToolBar toolBar = new JToolBar();
  private final JTabbedPane tabs = new JTabbedPane();
  private final JSplitPane split = new JSplitPane(JSplitPane.HORIZONTAL_SPLIT);
  private final StatusLine status;
  private final OutlineTree tree;

  /** Makes the window of an open outline; {@link #show} shows it. */
  EditorWindow(Workspace workspace) {
    this.workspace = workspace;
    status = new StatusLine(workspace);
    tree = new OutlineTree(workspace);
    frame.setDefaultCloseOperation(WindowConstants.DO_NOTHING_ON_CLOSE);
    frame.setJMenuBar(menus);
    toolBar.setFloatable(false);
    frame.add(toolBar, BorderLayout.NORTH);
    frame.add(split, BorderLayout.CENTER);
    split.setLeftComponent(new JScrollPane(tree));
    split.setRightComponent(tabs);
    frame.add(status, BorderLayout.SOUTH);
    tabs.getAccessibleContext().setAccessibleName("Panes");
    workspace.addListener(new WorkspaceListener() {
      @Override
      public void selected(List<Member> members) {
        commands.update();
      }

      @Override
      public void busy(Busy busy) {
        commands.update();
      }

      @Override
      public void historyChanged() {
        commands.update();
        setTitle();
      }

      @Override
      public void failed(Exception failure) {
        say(failure.getMessage() == null ? failure.toString() : failure.getMessage());
      }
    });
    addEditCommands();
    addSeparator("Edit");
    new TreeCommands(this, tree);
    tree.onComplaint(status::say);
    addPane("Details", new DetailsPane(workspace));
    addPane("History", new HistoryPane(workspace));
    setTitle();
    frame.setPreferredSize(new Dimension(1280, 800));
    frame.pack();
    split.setDividerLocation(560);
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

  /** Adds a command to the tool bar. */
  void addToToolBar(Action command) {
    toolBar.add(command).setFocusable(false);
  }

  private void addEditCommands() {
    addToMenu("File", commands.add("save", "Save", "ctrl S",
        "Write the outline to its database", workspace::dirty, () -> workspace.save(() -> {})));
    History history = workspace.history();
    addToMenu("Edit", commands.add("undo", "Undo", "ctrl Z", "Take the last edit back",
        () -> history.toUndo() != null, workspace::undo));
    addToMenu("Edit", commands.add("redo", "Redo", "ctrl Y", "Do the edit again",
        () -> history.toRedo() != null, workspace::redo));
  }

  private void setTitle() {
    frame.setTitle((workspace.dirty() ? "* " : "") + workspace.name() + " \u2013 Outline Editor");
  }

  /** Shows a sentence in a dialog. */
  void say(String sentence) {
    JOptionPane.showMessageDialog(frame, sentence, "Outline Editor", JOptionPane.WARNING_MESSAGE);
  }

  /** Shows a sentence in the status line for a while. */
  void status(String sentence) {
    status.say(sentence);
  }

  /** Asks whether to do something; {@code yes} is the name of the button that does it. */
  boolean confirm(String question, String yes) {
    Object[] answers = {yes, "Cancel"};
    return JOptionPane.showOptionDialog(frame, question, "Outline Editor",
        JOptionPane.DEFAULT_OPTION, JOptionPane.QUESTION_MESSAGE, null, answers, yes) == 0;
  }

  /** Shows the window. */
  void show() {
    commands.update();
    frame.setVisible(true);
  }
}
