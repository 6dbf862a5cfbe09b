package com.olvane.kep.olvane.editor;

import java.awt.Component;
import java.awt.event.ActionEvent;
import java.awt.event.HierarchyEvent;
import java.util.function.BooleanSupplier;
import java.util.function.Consumer;
import javax.swing.AbstractAction;
import javax.swing.JComponent;
import javax.swing.KeyStroke;
import javax.swing.event.DocumentEvent;
import javax.swing.event.DocumentListener;
import javax.swing.text.JTextComponent;
import javax.swing.undo.UndoManager;

/** Ways to hear of what happens to components. */
final class Listen {
  private Listen() {}

  /** Does something whenever the text of a field changes. */
  static void onChange(JTextComponent field, Runnable action) {
    field.getDocument().addDocumentListener(new DocumentListener() {
      @Override
      public void insertUpdate(DocumentEvent event) {
        action.run();
      }

      @Override
      public void removeUpdate(DocumentEvent event) {
        action.run();
      }

      @Override
      public void changedUpdate(DocumentEvent event) {
        action.run();
      }
    });
  }

  /** Does something when a key is pressed in a component that has the keyboard. */
  static void onKey(JComponent component, String key, Runnable action) {
    onKey(component, key, () -> true, action);
  }

  private static void onKey(
      JComponent component, String key, BooleanSupplier possible, Runnable action) {
    component.getInputMap().put(KeyStroke.getKeyStroke(key), key);
    component.getActionMap().put(key, new AbstractAction() {
      @Override
      public boolean isEnabled() {
        return possible.getAsBoolean();
      }

      @Override
      public void actionPerformed(ActionEvent event) {
        action.run();
      }
    });
  }

  /**
   * Lets the keys of undo and redo take back what is typed into a field, from what the manager that
   * is given was emptied at. Where nothing was typed since, they are the window's.
   */
  static UndoManager undo(JTextComponent field) {
    UndoManager typed = new UndoManager();
    typed.setLimit(-1);
    field.getDocument().addUndoableEditListener(typed);
    onKey(field, "ctrl Z", typed::canUndoOrRedo, () -> {
      if (typed.canUndo()) {
        typed.undo();
      }
    });
    for (String key : new String[] {"ctrl Y", "ctrl shift Z"}) {
      onKey(field, key, typed::canUndoOrRedo, () -> {
        if (typed.canRedo()) {
          typed.redo();
        }
      });
    }
    return typed;
  }

  /** Tells when a component comes to be seen, and when it goes. */
  static void onShowing(Component component, Consumer<Boolean> action) {
    component.addHierarchyListener(event -> {
      if ((event.getChangeFlags() & HierarchyEvent.SHOWING_CHANGED) != 0) {
        action.accept(component.isShowing());
      }
    });
  }
}
