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
import javax.swing.KeyStroke;
import javax.swing.event.DocumentEvent;
import javax.swing.event.DocumentListener;
import javax.swing.text.JTextComponent;

/**
 * A text that becomes an edit when its field is left or Ctrl+Enter is pressed; Escape takes back
 * what was typed. What does not fit is marked and explained while it is typed, and never becomes
 * an edit.
 */
final class TextCommit {
  private final JTextComponent field;
  private final Function<String, String> refusal;
  private final Consumer<String> commit;
  private final JLabel complaint;
  /** What the outline has, and what was given to it last. */
  private String shown = "";
  private String committed = "";
  /** What the outline did not take. */
  private String refused;

  /**
   * Looks after a field.
   *
   * @param complaint where the reason of a refusal is shown
   * @param refusal gives the reason why a text is refused, or null
   * @param commit takes a text that was changed and fits
   */
  TextCommit(JTextComponent field, JLabel complaint, Function<String, String> refusal,
      Consumer<String> commit) {
    this.field = field;
    this.refusal = refusal;
    this.commit = commit;
    this.complaint = complaint;
    complaint.setVisible(false);
    onChange(field, () -> markRefused(
        field, complaint, isTyped() ? refusal.apply(field.getText()) : null));
    field.addFocusListener(new FocusAdapter() {
      @Override
      public void focusLost(FocusEvent event) {
        if (!event.isTemporary()) {
          flush();
        }
      }
    });
    bind("ESCAPE", () -> set(shown));
    bind("ctrl ENTER", this::flush);
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

  private boolean isTyped() {
    return !field.getText().equals(committed);
  }

  private void set(String text) {
    committed = text;
    if (isTyped()) {
      field.setText(text);
      field.setCaretPosition(0);
    }
  }

  /**
   * Shows a text.
   *
   * @param again whether it was only read anew, so that what is being typed stays
   */
  void show(String text, boolean again) {
    shown = text;
    if (again && isTyped()) {
      committed = text;
    } else {
      set(text);
    }
  }

  /** Makes an edit of what was typed, if it fits. */
  void flush() {
    String text = field.getText();
    if (isTyped() && !text.equals(refused) && refusal.apply(text) == null) {
      committed = text;
      commit.accept(text);
    }
  }

  /** Takes note of an edit that failed: what was typed stays, to be mended or given up. */
  void failed() {
    if (!committed.equals(shown)) {
      refused = committed;
      committed = shown;
      markRefused(field, complaint, "The outline did not take this; Escape gives it up.");
    }
  }

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

  /** Marks a field as refused for a reason, or with null as right again. */
  static void markRefused(JComponent field, JLabel complaint, String reason) {
    field.putClientProperty(FlatBorder.REFUSED, reason != null);
    field.getAccessibleContext().setAccessibleDescription(reason);
    field.repaint();
    complaint.setText(reason == null ? " " : reason);
    complaint.setForeground(Theme.palette().error);
    complaint.setVisible(reason != null);
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

  /** Refuses what takes more bytes in an outline. */
  static Function<String, String> atMost(int limit) {
    return text -> HoldingBean.encodedLength(text) > limit ? tooLong(text, limit) : null;
  }

  private static String tooLong(String text, int limit) {
    return "At most " + limit + " bytes fit; these are " + HoldingBean.encodedLength(text) + ".";
  }
}
