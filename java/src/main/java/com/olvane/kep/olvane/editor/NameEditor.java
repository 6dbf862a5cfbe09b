package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.NewMember;
import java.awt.Component;
import java.awt.Dimension;
import java.util.EventObject;
import javax.swing.BorderFactory;
import javax.swing.DefaultCellEditor;
import javax.swing.JTextField;
import javax.swing.JTree;
import javax.swing.SwingUtilities;
import javax.swing.undo.UndoManager;

/** Edits a member's name in the tree; one that is not allowed is marked while it is typed. */
final class NameEditor extends DefaultCellEditor {
  private static final int MIN_WIDTH = 320;

  private final OutlineTree tree;
  private final JTextField field = (JTextField) editorComponent;
  /** Whether the name was to be taken and was not. */
  private boolean refused;
  private final UndoManager typed = Listen.undo(field);

  NameEditor(OutlineTree tree) {
    super(new JTextField());
    this.tree = tree;
    field.setName("name");
    field.getAccessibleContext().setAccessibleName("Name of the member");
    Listen.onChange(field, this::check);
  }

  /** What is wrong with the name, as a sentence; null for nothing. */
  private String complaint() {
    return Row.accordingTo(NewMember::new).apply(field.getText());
  }

  private void check() {
    String complaint = complaint();
    field.setToolTipText(complaint);
    field.getAccessibleContext().setAccessibleDescription(complaint);
    Palette palette = Theme.palette();
    field.setBorder(BorderFactory.createCompoundBorder(
        BorderFactory.createLineBorder(complaint == null ? palette.accent : palette.error),
        Theme.space(0, 4)));
    tree.complaint.accept(complaint != null && field.isShowing() ? complaint : "");
  }

  @Override
  public Component getTreeCellEditorComponent(
      JTree edited, Object value, boolean selected, boolean expanded, boolean leaf, int row) {
    field.setFont(edited.getFont());
    field.setText(value.toString());
    typed.discardAllEdits();
    refused = false;
    check();
    field.setPreferredSize(null);
    field.setPreferredSize(new Dimension(
        Math.max(field.getPreferredSize().width, MIN_WIDTH), tree.getRowHeight()));
    SwingUtilities.invokeLater(() -> {
      field.requestFocusInWindow();
      field.selectAll();
    });
    return field;
  }

  /** A click does not begin it. */
  @Override
  public boolean isCellEditable(EventObject event) {
    return event == null;
  }

  @Override
  public boolean stopCellEditing() {
    if (complaint() != null) {
      field.getToolkit().beep();
      refused = true;
      return false;
    }
    tree.complaint.accept("");
    return super.stopCellEditing();
  }

  @Override
  public void cancelCellEditing() {
    tree.complaint.accept(refused ? "The name stays as it was. " + complaint() : "");
    super.cancelCellEditing();
  }
}
