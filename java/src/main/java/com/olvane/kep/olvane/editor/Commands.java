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
  private static final class Command extends AbstractAction {
    private static final long serialVersionUID = 1;

    private final transient Runnable run;
    private final transient BooleanSupplier possible;

    Command(String name, String keys, String description, BooleanSupplier possible,
        Runnable run) {
      super(name);
      this.run = run;
      this.possible = possible;
      putValue(SHORT_DESCRIPTION, description);
      if (keys != null) {
        putValue(ACCELERATOR_KEY, KeyStroke.getKeyStroke(keys));
      }
    }

    @Override
    public void actionPerformed(ActionEvent event) {
      if (possible.getAsBoolean()) {
        run.run();
      }
    }
  }

  private final Map<String, Command> commands = new LinkedHashMap<>();

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
    Command command = new Command(name, keys, description, possible, run);
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
