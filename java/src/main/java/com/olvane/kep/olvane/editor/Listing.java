package com.olvane.kep.olvane.editor;

import java.awt.BorderLayout;
import java.awt.Dimension;
import java.awt.KeyboardFocusManager;
import java.awt.event.FocusEvent;
import java.awt.event.MouseAdapter;
import java.awt.event.MouseEvent;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.function.Consumer;
import java.util.function.Function;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import javax.swing.JTable;
import javax.swing.KeyStroke;
import javax.swing.ListSelectionModel;
import javax.swing.SwingConstants;
import javax.swing.table.AbstractTableModel;
import javax.swing.table.TableColumn;

/** A table of things to choose from by click or Enter, a column for each aspect of them. */
final class Listing<T> extends JTable {
  private final List<Function<T, String>> aspects = new ArrayList<>();
  private final AbstractTableModel rows = new AbstractTableModel() {
    @Override
    public int getRowCount() {
      return shown.size();
    }

    @Override
    public int getColumnCount() {
      return aspects.size();
    }

    @Override
    public Object getValueAt(int row, int column) {
      return aspects.get(column).apply(shown.get(row));
    }
  };
  private List<T> shown = Collections.emptyList();

  /** Makes a table without columns; its name is for tests and assistive technology. */
  Listing(String name) {
    setAutoCreateColumnsFromModel(false);
    setModel(rows);
    setRowHeight(24);
    setShowVerticalLines(false);
    setIntercellSpacing(new Dimension(0, 1));
    setFillsViewportHeight(true);
    ((JLabel) getTableHeader().getDefaultRenderer())
        .setHorizontalAlignment(SwingConstants.LEADING);
    getTableHeader().setReorderingAllowed(false);
    setName(name);
    getAccessibleContext().setAccessibleName(name);
    setSelectionMode(ListSelectionModel.SINGLE_SELECTION);
    // Tab leaves the table, as there is nothing to edit in its cells.
    setFocusTraversalKeys(KeyboardFocusManager.FORWARD_TRAVERSAL_KEYS, null);
    setFocusTraversalKeys(KeyboardFocusManager.BACKWARD_TRAVERSAL_KEYS, null);
  }

  @Override
  protected void processFocusEvent(FocusEvent event) {
    super.processFocusEvent(event);
    showFocus();
    if (isFocusOwner() && getSelectedRow() < 0 && getRowCount() > 0) {
      choose(0);
    }
  }

  @Override
  public void updateUI() {
    super.updateUI();
    showFocus();
  }

  /** What is chosen stands back while the keyboard is elsewhere. */
  private void showFocus() {
    setSelectionBackground(isFocusOwner() ? Theme.palette().selection : Theme.palette().hover);
  }

  /** Adds a column of the width that it had best. */
  Listing<T> column(String heading, int width, Function<T, String> aspect) {
    TableColumn column = new TableColumn(aspects.size(), width);
    column.setHeaderValue(heading);
    aspects.add(aspect);
    addColumn(column);
    return this;
  }

  /** {@return this below a sentence, as a pane of the window} */
  JPanel pane(JLabel sentence) {
    JPanel pane = new JPanel(new BorderLayout());
    sentence.setBorder(Theme.space(8, 10));
    JScrollPane scroll = new JScrollPane(this);
    scroll.setBorder(Theme.space(0, 0));
    pane.add(sentence, BorderLayout.NORTH);
    pane.add(scroll);
    return pane;
  }

  /** Shows things; the list may grow, and {@link #grown} says so. */
  void show(List<T> things) {
    shown = things;
    rows.fireTableDataChanged();
  }

  /** The list that is shown has become longer. */
  void grown(int before) {
    rows.fireTableRowsInserted(before, shown.size() - 1);
  }

  /** Chooses what is in a row, and brings it into view. */
  void choose(int row) {
    setRowSelectionInterval(row, row);
    scrollRectToVisible(getCellRect(row, 0, true));
  }

  /** What is chosen; null for nothing. */
  T chosen() {
    return getSelectedRow() < 0 ? null : shown.get(getSelectedRow());
  }

  /** Hears of what is clicked so many times, or of Enter. */
  void onChoice(int clicks, Consumer<T> listener) {
    Runnable choice = () -> {
      if (chosen() != null) {
        listener.accept(chosen());
      }
    };
    addMouseListener(new MouseAdapter() {
      @Override
      public void mouseClicked(MouseEvent event) {
        if (event.getClickCount() == clicks) {
          choice.run();
        }
      }
    });
    Listen.onKey(this, "ENTER", choice);
    getInputMap().put(KeyStroke.getKeyStroke("HOME"), "selectFirstRow");
    getInputMap().put(KeyStroke.getKeyStroke("END"), "selectLastRow");
  }
}
