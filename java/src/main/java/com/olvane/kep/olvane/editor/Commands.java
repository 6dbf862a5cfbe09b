package com.olvane.kep.olvane.editor;

import java.awt.event.ActionEvent;
import java.util.LinkedHashMap;
import java.util.Map;
import java.util.function.BooleanSupplier;
import javax.swing.AbstractAction;
import javax.swing.Action;
import javax.swing.JMenu;
import javax.swing.JMenuBar;
import javax.swing.KeyStroke;

/** All that can be done in the window: actions in menus, with names, keys and a sentence each. */
final class Commands {
  /** Something that can be done. */
  final class Command extends AbstractAction {
    private final Runnable run;
    private BooleanSupplier possible = () -> true;
    private boolean forTree;

    private Command(String name, String keys, String description, Runnable run) {
      super(name);
      this.run = run;
      putValue(SHORT_DESCRIPTION, description);
      putValue(ACCELERATOR_KEY, keys == null ? null : KeyStroke.getKeyStroke(keys));
    }

    /** Says when it can be done. */
    Command when(BooleanSupplier condition) {
      possible = condition;
      return this;
    }

    /** Says that it works on the tree: elsewhere its keys do nothing. */
    Command onTree() {
      forTree = true;
      return this;
    }

    @Override
    public void actionPerformed(ActionEvent event) {
      if (possible.getAsBoolean() && !(forTree && elsewhere.getAsBoolean())) {
        run.run();
      }
    }
  }

  final JMenuBar bar = new JMenuBar();
  private final Map<String, JMenu> menus = new LinkedHashMap<>();
  private final Map<String, Command> commands = new LinkedHashMap<>();
  private final BooleanSupplier elsewhere;

  /** {@code elsewhere} tells whether the keyboard is at a part of the window beside the tree. */
  Commands(BooleanSupplier elsewhere, String... menuNames) {
    this.elsewhere = elsewhere;
    for (String name : menuNames) {
      JMenu menu = new JMenu(name);
      menu.setMnemonic(name.charAt(0));
      menus.put(name, menu);
      bar.add(menu);
    }
  }

  JMenu menu(String name) {
    return menus.get(name);
  }

  /**
   * Adds a command to a menu.
   *
   * @param keys the keys as {@link KeyStroke#getKeyStroke(String)} takes them, or null
   * @param description one sentence, shown as a tool tip
   * @param run does it, on the event thread
   */
  Command add(JMenu menu, String name, String keys, String description, Runnable run) {
    Command command = new Command(name, keys, description, run);
    commands.put(name, command);
    menu.add(command);
    return command;
  }

  /** The command of a name. */
  Action get(String name) {
    return commands.get(name);
  }

  /** Enables what can be done now, and disables the rest. */
  void update() {
    commands.values().forEach(
        command -> command.setEnabled(command.possible.getAsBoolean()));
  }
}
