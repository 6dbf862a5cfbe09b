package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.NewMember;
import com.olvane.kep.olvane.outline.OutlineException;
import java.awt.Component;
import java.awt.Dimension;
import java.awt.event.MouseEvent;
import java.util.EventObject;
import javax.swing.AbstractCellEditor;
import javax.swing.BorderFactory;
import javax.swing.JTextField;
import javax.swing.JTree;
import javax.swing.SwingUtilities;
import javax.swing.tree.TreeCellEditor;

/** Edits a member's name in the tree; one that is not allowed is marked while it is typed. */
final class NameEditor extends AbstractCellEditor implements TreeCellEditor {
  private static final long serialVersionUID = 1;

  private final OutlineTree tree;
  private final JTextField field = new JTextField() {
    private static final long serialVersionUID = 1;

    @Override
    public Dimension getPreferredSize() {
      Dimension size = super.getPreferredSize();
      return new Dimension(Math.max(size.width + 24, 200), tree.getRowHeight());
    }
  };

  NameEditor(OutlineTree tree) {
    this.tree = tree;
    field.setName("name");
    field.getAccessibleContext().setAccessibleName("Name of the member");
    field.addActionListener(event -> stopCellEditing());
    Listen.onChange(field, this::check);
  }

  /** What is wrong with a name, as a sentence; null for nothing. */
  static String complaint(String name) {
    try {
      new NewMember(name);
      return null;
    } catch (OutlineException e) {
      return e.limit() == 0 ? "A name has at least one character."
          : "The name is too long: at most " + e.limit() + " bytes fit.";
    }
  }

  private void check() {
    String complaint = complaint(field.getText());
    field.setToolTipText(complaint);
    field.getAccessibleContext().setAccessibleDescription(complaint);
    Palette palette = Theme.palette();
    field.setBorder(BorderFactory.createCompoundBorder(
        BorderFactory.createLineBorder(complaint == null ? palette.accent : palette.error),
        BorderFactory.createEmptyBorder(0, 4, 0, 4)));
    tree.complaint.accept(complaint == null || !field.isShowing() ? "" : complaint);
    // Not now: the field has yet to hear of the change and would lay out what it no longer holds.
    SwingUtilities.invokeLater(() -> {
      if (field.isShowing()) {
        field.setSize(field.getPreferredSize());
      }
    });
  }

  @Override
  public Component getTreeCellEditorComponent(
      JTree edited, Object value, boolean selected, boolean expanded, boolean leaf, int row) {
    field.setFont(edited.getFont());
    field.setText(value.toString());
    check();
    SwingUtilities.invokeLater(() -> {
      field.requestFocusInWindow();
      field.selectAll();
    });
    return field;
  }

  @Override
  public Object getCellEditorValue() {
    return field.getText();
  }

  @Override
  public boolean isCellEditable(EventObject event) {
    return !(event instanceof MouseEvent);
  }

  @Override
  public boolean shouldSelectCell(EventObject event) {
    return true;
  }

  @Override
  public boolean stopCellEditing() {
    if (complaint(field.getText()) != null) {
      field.getToolkit().beep();
      return false;
    }
    tree.complaint.accept("");
    return super.stopCellEditing();
  }

  @Override
  public void cancelCellEditing() {
    tree.complaint.accept("");
    super.cancelCellEditing();
  }
}
