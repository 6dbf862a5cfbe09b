package com.olvane.kep.olvane.editor;

import java.awt.Component;
import java.util.function.Function;
import javax.swing.DefaultCellEditor;
import javax.swing.JLabel;
import javax.swing.JTable;
import javax.swing.JTextField;
import javax.swing.event.DocumentEvent;
import javax.swing.event.DocumentListener;

/** Edits a cell of a table and stays in it while what is typed is refused. */
final class CheckedEditor extends DefaultCellEditor {
  private static final long serialVersionUID = 1;

  private final transient Function<String, String> refusal;
  private final JTextField field;
  private final JLabel complaint;
  /** Whether anything was typed: what was only looked at stays as it is. */
  private boolean typed;

  CheckedEditor(JLabel complaint, Function<String, String> refusal) {
    this(new JTextField(), complaint, refusal);
  }

  CheckedEditor(JTextField field, JLabel complaint, Function<String, String> refusal) {
    super(field);
    this.field = field;
    this.refusal = refusal;
    this.complaint = complaint;
    setClickCountToStart(1);
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
  }

  private boolean check() {
    typed = true;
    String reason = refusal.apply(field.getText());
    TextCommit.markRefused(field, complaint, reason);
    return reason == null;
  }

  @Override
  public Component getTableCellEditorComponent(
      JTable table, Object value, boolean selected, int row, int column) {
    Component editor = super.getTableCellEditorComponent(
        table, Hint.DIFFERENT.equals(value) ? "" : value, selected, row, column);
    field.setBorder(new FlatBorder(new java.awt.Insets(1, 4, 1, 4)));
    field.selectAll();
    typed = false;
    return editor;
  }

  @Override
  public boolean stopCellEditing() {
    if (!typed) {
      cancelCellEditing();
      return true;
    }
    return check() && super.stopCellEditing();
  }

  @Override
  public void cancelCellEditing() {
    super.cancelCellEditing();
    TextCommit.markRefused(field, complaint, null);
  }
}
