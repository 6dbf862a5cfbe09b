package com.olvane.kep.olvane.editor;

import java.awt.event.ActionEvent;
import java.util.LinkedHashMap;
import java.util.Map;
import java.util.function.BooleanSupplier;
import javax.swing.AbstractAction;
import javax.swing.Action;
import javax.swing.KeyStroke;

/** All that can be done in the window, as actions with names, keys and a sentence each. */
final class Commands {
  private final class Command extends AbstractAction {
    private static final long serialVersionUID = 1;

    private final transient Runnable run;
    private final transient BooleanSupplier possible;
    private final boolean forTree;

    Command(String name, String keys, String description, BooleanSupplier possible,
        Runnable run, boolean forTree) {
      super(name);
      this.forTree = forTree;
      this.run = run;
      this.possible = possible;
      putValue(SHORT_DESCRIPTION, description);
      if (keys != null) {
        putValue(ACCELERATOR_KEY, KeyStroke.getKeyStroke(keys));
      }
    }

    @Override
    public void actionPerformed(ActionEvent event) {
      if (possible.getAsBoolean() && !(forTree && elsewhere.getAsBoolean())) {
        run.run();
      }
    }
  }

  private final Map<String, Command> commands = new LinkedHashMap<>();
  private final BooleanSupplier elsewhere;

  /** {@code elsewhere} tells whether the keyboard is at a part of the window beside the tree. */
  Commands(BooleanSupplier elsewhere) {
    this.elsewhere = elsewhere;
  }

  /**
   * Adds a command.
   *
   * @param id the name that the program uses
   * @param name the name in menus
   * @param keys the keys as {@link KeyStroke#getKeyStroke(String)} takes them, or null
   * @param description one sentence, shown as a tool tip
   * @param possible whether it can be done now
   * @param run does it, on the event thread
   */
  Action add(String id, String name, String keys, String description, BooleanSupplier possible,
      Runnable run) {
    return put(id, new Command(name, keys, description, possible, run, false));
  }

  /** The same for one that works on the tree: elsewhere its keys do nothing. */
  Action addForTree(String id, String name, String keys, String description,
      BooleanSupplier possible, Runnable run) {
    return put(id, new Command(name, keys, description, possible, run, true));
  }

  private Action put(String id, Command command) {
    commands.put(id, command);
    return command;
  }

  /** The same for a command that can always be done. */
  Action add(String id, String name, String keys, String description, Runnable run) {
    return add(id, name, keys, description, () -> true, run);
  }

  /** The command of an id. */
  Action get(String id) {
    Command command = commands.get(id);
    if (command == null) {
      throw new IllegalArgumentException("There is no command " + id);
    }
    return command;
  }

  /** Enables what can be done now, and disables the rest. */
  void update() {
    commands.values().forEach(
        command -> command.setEnabled(command.possible.getAsBoolean()));
  }
}
