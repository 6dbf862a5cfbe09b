package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.defs.outline.HoldingBean;
import com.olvane.kep.olvane.outline.OutlineException;
import java.awt.event.ActionEvent;
import java.awt.event.FocusAdapter;
import java.awt.event.FocusEvent;
import java.util.function.Consumer;
import java.util.function.Function;
import javax.swing.AbstractAction;
import javax.swing.JComponent;
import javax.swing.JLabel;
import javax.swing.JTextField;
import javax.swing.KeyStroke;
import javax.swing.event.DocumentEvent;
import javax.swing.event.DocumentListener;
import javax.swing.text.JTextComponent;

/**
 * A text that becomes an edit when its field is left or, in a field of one line, Enter is pressed;
 * Escape takes back what was typed. What does not fit is marked and explained while it is typed,
 * and never becomes an edit.
 */
final class TextCommit {
  private final JTextComponent field;
  private final JLabel complaint;
  private final Function<String, String> refusal;
  private final Consumer<String> commit;
  private String committed = "";
  private boolean setting;

  /**
   * Looks after a field.
   *
   * @param complaint where the reason of a refusal is shown, or null
   * @param refusal gives the reason why a text is refused, or null
   * @param commit takes a text that was changed and fits
   */
  TextCommit(JTextComponent field, JLabel complaint, Function<String, String> refusal,
      Consumer<String> commit) {
    this.field = field;
    this.complaint = complaint;
    this.refusal = refusal;
    this.commit = commit;
    if (complaint != null) {
      complaint.setVisible(false);
    }
    field.getDocument().addDocumentListener(new DocumentListener() {
      @Override
      public void insertUpdate(DocumentEvent event) {
        check();
      }

      @Override
      public void removeUpdate(DocumentEvent event) {
        check();
      }

      @Override
      public void changedUpdate(DocumentEvent event) {
        check();
      }
    });
    field.addFocusListener(new FocusAdapter() {
      @Override
      public void focusLost(FocusEvent event) {
        if (!event.isTemporary()) {
          flush();
        }
      }
    });
    bind("ESCAPE", () -> set(committed));
    bind(field instanceof JTextField ? "ENTER" : "ctrl ENTER", this::flush);
  }

  private void bind(String key, Runnable action) {
    field.getInputMap().put(KeyStroke.getKeyStroke(key), key);
    field.getActionMap().put(key, new AbstractAction() {
      private static final long serialVersionUID = 1;

      @Override
      public void actionPerformed(ActionEvent event) {
        action.run();
      }
    });
  }

  /** Whether something was typed that is no edit yet. */
  boolean isTyped() {
    return !field.getText().equals(committed);
  }

  /** Shows a text in place of what is there. */
  void set(String text) {
    setting = true;
    committed = text;
    if (!field.getText().equals(text)) {
      field.setText(text);
      field.setCaretPosition(0);
    }
    setting = false;
    check();
  }

  /** Shows a text that was read anew, but leaves alone what is being typed. */
  void refresh(String text) {
    if (isTyped()) {
      committed = text;
    } else {
      set(text);
    }
  }

  /** Makes an edit of what was typed, if it fits. */
  void flush() {
    String text = field.getText();
    if (isTyped() && field.isEditable() && refusal.apply(text) == null) {
      committed = text;
      commit.accept(text);
    }
  }

  private void check() {
    if (setting) {
      return;
    }
    String reason = isTyped() ? refusal.apply(field.getText()) : null;
    markRefused(field, complaint, reason);
  }

  /** Marks a field as refused for a reason, or with null as right again. */
  static void markRefused(JComponent field, JLabel complaint, String reason) {
    field.putClientProperty(FlatBorder.REFUSED, reason != null);
    field.getAccessibleContext().setAccessibleDescription(reason);
    field.repaint();
    if (complaint != null) {
      complaint.setText(reason);
      complaint.setForeground(Theme.palette().error);
      complaint.setVisible(reason != null);
    }
  }

  /** Asks the facade whether a text fits: the reason why not, or null. */
  static Function<String, String> accordingTo(Consumer<String> attempt) {
    return text -> {
      try {
        attempt.accept(text);
        return null;
      } catch (OutlineException e) {
        return e.limit() == 0 ? e.getMessage() : tooLong(text, e.limit());
      }
    };
  }

  /** Says that a text is too long. */
  static String tooLong(String text, int limit) {
    return "At most " + limit + " bytes fit; these are " + HoldingBean.encodedLength(text) + ".";
  }
}
