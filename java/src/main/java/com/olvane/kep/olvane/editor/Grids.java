package com.olvane.kep.olvane.editor;

import java.awt.Dimension;
import javax.swing.JScrollPane;
import javax.swing.JTable;
import javax.swing.ListSelectionModel;

/** What the small tables of the details have in common. */
final class Grids {
  private static final int MOST_ROWS = 6;

  private Grids() {}

  /** Makes a table as high as it has rows, within limits. */
  static void style(JTable table, int leastRows) {
    Theme.style(table);
    table.setSelectionMode(ListSelectionModel.SINGLE_SELECTION);
    table.setSurrendersFocusOnKeystroke(true);
    // Tab leaves the table as it leaves a field.
    table.setFocusTraversalKeys(java.awt.KeyboardFocusManager.FORWARD_TRAVERSAL_KEYS, null);
    resize(table, leastRows);
  }

  /** Makes the table as high as it has rows now. */
  static void resize(JTable table, int leastRows) {
    int rows = Math.max(leastRows, Math.min(MOST_ROWS, table.getRowCount()));
    table.setPreferredScrollableViewportSize(new Dimension(100, rows * table.getRowHeight()));
    table.revalidate();
  }

  static JScrollPane scroll(JTable table) {
    JScrollPane scroll = new JScrollPane(table);
    scroll.setMinimumSize(new Dimension(0, 60));
    return scroll;
  }

  /** Takes over what is being typed, or gives it up where it is refused. */
  static void stopEditing(JTable table) {
    if (table.isEditing() && !table.getCellEditor().stopCellEditing()) {
      table.getCellEditor().cancelCellEditing();
    }
  }
}
