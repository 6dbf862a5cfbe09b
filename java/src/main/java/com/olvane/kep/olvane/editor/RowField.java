package com.olvane.kep.olvane.editor;

import java.awt.Container;
import java.awt.Font;
import java.awt.event.FocusAdapter;
import java.awt.event.FocusEvent;
import java.awt.event.KeyEvent;
import java.util.ArrayList;
import java.util.List;
import java.util.function.Consumer;
import javax.swing.DefaultComboBoxModel;
import javax.swing.JComboBox;
import javax.swing.JComponent;
import javax.swing.JLabel;
import javax.swing.JScrollPane;
import javax.swing.JTextField;
import javax.swing.KeyStroke;
import javax.swing.plaf.ColorUIResource;
import javax.swing.text.JTextComponent;
import javax.swing.undo.UndoManager;

/**
 * A row on the screen. What is typed becomes an edit when the field is left or Enter is pressed
 * (Ctrl+Enter in a text of several lines), what is chosen at once; Escape takes back what was
 * typed. What does not fit is marked and explained while it is typed, and never becomes an edit.
 */
final class RowField {
  private static final KeyStroke UNDO = KeyStroke.getKeyStroke("ctrl Z");

  private final JLabel label = new JLabel();
  private final JLabel complaint = new JLabel();
  /** Where the value is typed or chosen: one of them, the other is null. */
  private final JTextComponent text;
  private final JComboBox<String> box;
  private UndoManager typed = new UndoManager();
  private Row row;
  private List<String> choices;
  /** What was given to the outline last. */
  private String committed = "";
  /** What the outline did not take. */
  private String refused;

  /** Makes the field of a row, and of others like it; {@code typing} hears of what is typed. */
  RowField(Row row, boolean editable, Consumer<RowField> typing) {
    this.row = row;
    text = row.choices == null ? row.field.get() : null;
    box = row.choices == null ? null : new Box();
    input().setName(row.name());
    input().getAccessibleContext().setAccessibleName(row.name());
    label.setLabelFor(input());
    complaint.setVisible(false);
    input().addFocusListener(new FocusAdapter() {
      @Override
      public void focusLost(FocusEvent event) {
        if (!event.isTemporary()) {
          flush();
        }
      }
    });
    if (text == null) {
      box.setEnabled(editable);
      return;
    }
    text.setEditable(editable);
    typed = Listen.undo(text);
    Listen.onChange(text, () -> {
      markRefused(text, complaint, isTyped() ? this.row.refusal.apply(get()) : null);
      typing.accept(this);
    });
    Listen.onKey(text, "ESCAPE", this::giveUp);
    Listen.onKey(text, isLine() ? "ENTER" : "ctrl ENTER", this::flush);
  }

  /** A choice; letters go to one of its words, which is taken as a text that was typed is. */
  private final class Box extends JComboBox<String> {
    private boolean byLetter;

    Box() {
      addActionListener(event -> {
        if (!byLetter) {
          flush();
        }
      });
    }

    @Override
    public boolean selectWithKeyChar(char letter) {
      byLetter = true;
      boolean selected = super.selectWithKeyChar(letter);
      byLetter = false;
      return selected;
    }

    @Override
    public void processKeyEvent(KeyEvent event) {
      if (event.getID() == KeyEvent.KEY_PRESSED && event.getKeyCode() == KeyEvent.VK_ESCAPE) {
        giveUp();
      } else if (isTyped() && KeyStroke.getKeyStrokeForEvent(event).equals(UNDO)) {
        giveUp();
        event.consume();
      } else if (event.getID() == KeyEvent.KEY_PRESSED
          && event.getKeyCode() == KeyEvent.VK_ENTER && !isPopupVisible()) {
        flush();
      }
      super.processKeyEvent(event);
    }
  }

  private boolean isLine() {
    return text == null || text instanceof JTextField;
  }

  /** {@return the component with the keyboard} */
  JComponent input() {
    return text == null ? box : text;
  }

  /** Adds a label and the field to a form of two columns, a long text below its heading. */
  void addTo(Container form) {
    if (isLine()) {
      form.add(label, "wmin 0");
      form.add(input(), "w 80:100:");
    } else {
      label.setFont(label.getFont().deriveFont(Font.BOLD));
      form.add(label, "span, wmin 0, gaptop 6");
      JScrollPane scroll = new JScrollPane(text);
      scroll.setBorder(new Flat.Border(2, 2));
      form.add(scroll, "span, growx, wmin 0");
    }
    form.add(complaint, "span, wmin 0");
  }

  private String get() {
    Object value = text == null ? box.getSelectedItem() : text.getText();
    return value == null ? "" : value.toString();
  }

  private String shown() {
    return row.value == null ? "" : row.value;
  }

  /** Whether there is a text that the outline does not have, as it is still typed or not taken. */
  boolean isTyped() {
    return !get().equals(committed);
  }

  /** What is wrong with the text. */
  String complaint() {
    return label.getText() + ": " + complaint.getText();
  }

  /** Takes back what was typed. */
  void giveUp() {
    set(shown());
  }

  private void set(String value) {
    committed = value;
    if (isTyped() && text == null) {
      box.setSelectedItem(value);
    } else if (isTyped()) {
      text.setText(value);
      text.setCaretPosition(0);
    }
    typed.discardAllEdits();
  }

  /**
   * Shows a row.
   *
   * @param again whether it was only read anew, so that what is being typed stays
   */
  void show(Row now, boolean again) {
    boolean keep = again && isTyped();
    row = now;
    if (text == null) {
      offer();
    }
    label.setText(text != null && row.value == null
        ? row.label + " " + Row.DIFFERENT : row.label);
    input().setForeground(new ColorUIResource(
        row.faint || Row.DIFFERENT.equals(row.value) ? Theme.palette().faint
            : Theme.palette().text));
    if (isLine()) {
      input().setToolTipText(shown().isEmpty() ? null : shown());
    }
    if (keep) {
      committed = shown();
    } else {
      set(shown());
    }
    if (!isTyped()) {
      markRefused(input(), complaint, null);
    }
  }

  private void offer() {
    List<String> offered = new ArrayList<>(row.choices);
    if (!offered.contains(row.value)) {
      offered.add(row.value);
    }
    if (!offered.equals(choices)) {
      choices = offered;
      DefaultComboBoxModel<String> model =
          new DefaultComboBoxModel<>(offered.toArray(new String[0]));
      committed = row.value;
      model.setSelectedItem(row.value);
      box.setModel(model);
    }
  }

  private boolean fits() {
    return isTyped() && !get().equals(refused) && row.refusal.apply(get()) == null;
  }

  /** Makes an edit of what was typed, if it fits. */
  void flush() {
    if (fits()) {
      committed = get();
      typed.discardAllEdits();
      row.set.accept(committed);
    }
  }

  /** Gives what is typed to the row as it is now, if it fits; it goes on being typed. */
  void offerTyped() {
    if (fits()) {
      row.set.accept(get());
    }
  }

  /** Takes note of an edit that failed: what was typed stays, to be mended or given up. */
  void failed() {
    if (committed.equals(shown())) {
      return;
    }
    if (text == null) {
      set(shown());
      return;
    }
    refused = committed;
    committed = shown();
    markRefused(text, complaint, "The outline did not take this; Escape gives it up.");
  }

  /** Marks a field as refused for a reason, or with null as right again. */
  static void markRefused(JComponent field, JLabel complaint, String reason) {
    field.putClientProperty(Flat.REFUSED, reason != null);
    field.getAccessibleContext().setAccessibleDescription(reason);
    (field.getParent() == null ? field : field.getParent().getParent()).repaint();
    complaint.setText(reason == null ? " " : reason);
    complaint.setForeground(new ColorUIResource(Theme.palette().error));
    complaint.setVisible(reason != null);
  }
}
