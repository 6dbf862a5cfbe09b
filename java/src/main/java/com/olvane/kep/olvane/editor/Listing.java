package com.olvane.kep.olvane.editor;

import java.awt.KeyboardFocusManager;
import java.awt.event.ActionEvent;
import java.awt.event.MouseAdapter;
import java.awt.event.MouseEvent;
import java.util.Collections;
import java.util.List;
import java.util.function.Consumer;
import java.util.function.Function;
import javax.swing.AbstractAction;
import javax.swing.JTable;
import javax.swing.KeyStroke;
import javax.swing.ListSelectionModel;
import javax.swing.table.AbstractTableModel;

/** A table of things to choose from by click or Enter, a column for each aspect of them. */
final class Listing<T> extends JTable {
  private static final long serialVersionUID = 1;

  private final transient List<Function<T, String>> aspects;
  private transient List<T> shown = Collections.emptyList();

  /**
   * Makes an empty table.
   *
   * @param name its name, for tests and assistive technology
   * @param headings the headings of the columns
   * @param widths the widths that they had best, in pixels
   * @param aspects what stands in the columns
   */
  Listing(String name, String[] headings, int[] widths, List<Function<T, String>> aspects) {
    this.aspects = aspects;
    setModel(new AbstractTableModel() {
      private static final long serialVersionUID = 1;

      @Override
      public int getRowCount() {
        return shown.size();
      }

      @Override
      public int getColumnCount() {
        return headings.length;
      }

      @Override
      public String getColumnName(int column) {
        return headings[column];
      }

      @Override
      public Object getValueAt(int row, int column) {
        return Listing.this.aspects.get(column).apply(shown.get(row));
      }
    });
    Theme.style(this);
    setName(name);
    getAccessibleContext().setAccessibleName(name);
    setSelectionMode(ListSelectionModel.SINGLE_SELECTION);
    // Tab leaves the table, as there is nothing to edit in its cells.
    setFocusTraversalKeys(KeyboardFocusManager.FORWARD_TRAVERSAL_KEYS, null);
    setFocusTraversalKeys(KeyboardFocusManager.BACKWARD_TRAVERSAL_KEYS, null);
    for (int column = 0; column < widths.length; column++) {
      getColumnModel().getColumn(column).setPreferredWidth(widths[column]);
    }
  }

  /** Shows things; the list may grow, and {@link #grown} says so. */
  void show(List<T> things) {
    shown = things;
    ((AbstractTableModel) getModel()).fireTableDataChanged();
  }

  /** The list that is shown has become longer. */
  void grown(int before) {
    ((AbstractTableModel) getModel()).fireTableRowsInserted(before, shown.size() - 1);
  }

  /** What is chosen; null for nothing. */
  T chosen() {
    return getSelectedRow() < 0 ? null : shown.get(getSelectedRow());
  }

  /** Hears of what is clicked so many times, or of Enter. */
  void onChoice(int clicks, Consumer<T> listener) {
    addMouseListener(new MouseAdapter() {
      @Override
      public void mouseClicked(MouseEvent event) {
        if (event.getClickCount() == clicks && chosen() != null) {
          listener.accept(chosen());
        }
      }
    });
    getInputMap().put(KeyStroke.getKeyStroke("ENTER"), "choose");
    getActionMap().put("choose", new AbstractAction() {
      private static final long serialVersionUID = 1;

      @Override
      public void actionPerformed(ActionEvent event) {
        if (chosen() != null) {
          listener.accept(chosen());
        }
      }
    });
  }
}
