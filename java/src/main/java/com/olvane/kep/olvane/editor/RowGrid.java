package com.olvane.kep.olvane.editor;

import java.awt.Component;
import java.awt.Dimension;
import java.awt.Insets;
import java.awt.KeyboardFocusManager;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;
import java.util.function.Consumer;
import java.util.function.Function;
import java.util.stream.Collectors;
import javax.swing.DefaultCellEditor;
import javax.swing.JComboBox;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import javax.swing.JTable;
import javax.swing.JTextField;
import javax.swing.ListSelectionModel;
import javax.swing.Timer;
import javax.swing.table.AbstractTableModel;
import javax.swing.table.DefaultTableCellRenderer;
import javax.swing.table.TableCellEditor;
import net.miginfocom.swing.MigLayout;

/** Rows of a label and a value, which is typed or chosen in its place. */
final class RowGrid extends JPanel {
  private static final long serialVersionUID = 1;
  /** The value where several members have different ones. */
  static final String DIFFERENT = "(different)";
  private static final List<String> YES_NO = Arrays.asList("yes", "no");

  /** A row; immutable. */
  static final class Row {
    private final String label;
    private final String value;
    private final boolean faint;
    private final List<String> choices;
    private final Function<String, String> refusal;
    private final Consumer<String> set;

    private Row(String label, String value, boolean faint, List<String> choices,
        Function<String, String> refusal, Consumer<String> set) {
      this.label = label;
      this.value = value;
      this.faint = faint;
      this.choices = choices;
      this.refusal = refusal;
      this.set = set;
    }

    /** A value that is typed; {@code refusal} gives the reason why one is refused, or null. */
    static Row typed(
        String label, String value, Function<String, String> refusal, Consumer<String> set) {
      return new Row(label, value, false, null, refusal, set);
    }

    /** A value that is chosen. */
    static Row chosen(String label, String value, List<String> choices, Consumer<String> set) {
      return new Row(label, value, false, choices, text -> null, set);
    }

    /** A value that is yes or no, or null for different ones. */
    static Row yesNo(String label, Boolean value, Consumer<Boolean> set) {
      return chosen(label, value == null ? DIFFERENT : value ? "yes" : "no", YES_NO,
          text -> set.accept(text.equals("yes")));
    }

    /** The same with a value that stands back, as nobody gave it. */
    Row standingBack(boolean back) {
      return new Row(label, value, back, choices, refusal, set);
    }
  }

  private final boolean editable;
  private final int mostRows;
  private final Model model = new Model();
  private final Table table = new Table();
  private final JLabel complaint = new JLabel();
  private transient List<Row> rows = Collections.emptyList();
  private boolean typed;

  /**
   * Makes an empty grid.
   *
   * @param editable whether the values can be changed
   * @param labelWidth the share of the label's column
   * @param mostRows the number of rows from which on the grid scrolls
   */
  RowGrid(String title, boolean editable, int labelWidth, int mostRows) {
    super(new MigLayout("insets 0, fillx, wrap 1, hidemode 3", "[grow,fill]"));
    this.editable = editable;
    this.mostRows = mostRows;
    Theme.style(table);
    table.setName(title);
    table.setTableHeader(null);
    table.setSelectionMode(ListSelectionModel.SINGLE_SELECTION);
    table.setSurrendersFocusOnKeystroke(true);
    // Tab leaves the grid as it leaves a field.
    table.setFocusTraversalKeys(KeyboardFocusManager.FORWARD_TRAVERSAL_KEYS, null);
    table.setFocusTraversalKeys(KeyboardFocusManager.BACKWARD_TRAVERSAL_KEYS, null);
    // Wide enough to be narrowed, which keeps the shares; room to spare is given out evenly.
    table.getColumnModel().getColumn(0).setPreferredWidth(10 * labelWidth);
    table.getColumnModel().getColumn(1).setPreferredWidth(10 * (100 - labelWidth));
    complaint.setVisible(false);
    add(Form.heading(title, table));
    add(new JScrollPane(table));
    add(complaint);
  }

  /** Shows rows; a value that is being edited is left alone while its row stays. */
  void show(List<Row> now) {
    boolean same = labels(now).equals(labels(rows));
    rows = now;
    if (same && !rows.isEmpty()) {
      model.fireTableRowsUpdated(0, rows.size() - 1);
      return;
    }
    if (table.isEditing()) {
      table.getCellEditor().cancelCellEditing();
    }
    model.fireTableDataChanged();
    int height = Math.max(1, Math.min(mostRows, rows.size())) * table.getRowHeight();
    table.setPreferredScrollableViewportSize(new Dimension(100, height));
    revalidate();
  }

  private static List<String> labels(List<Row> rows) {
    return rows.stream().map(row -> row.label).collect(Collectors.toList());
  }

  private boolean hasKeyboard() {
    return table.isEditing() && FlatBorder.hasFocus(table);
  }

  /**
   * Does something when none of the grids has the keyboard in a value, or after a moment. A click
   * elsewhere is heard of before the keyboard follows it, and to end the editing until then would
   * draw it back here.
   */
  static void afterLeaving(List<RowGrid> grids, Runnable then) {
    afterLeaving(grids, then, 20);
  }

  private static void afterLeaving(List<RowGrid> grids, Runnable then, int tries) {
    if (tries == 0 || grids.stream().noneMatch(RowGrid::hasKeyboard)) {
      then.run();
      return;
    }
    Timer soon = new Timer(20, event -> afterLeaving(grids, then, tries - 1));
    soon.setRepeats(false);
    soon.start();
  }

  /** Takes over what is being typed, or gives it up where it is refused. */
  void flush() {
    if (table.isEditing() && !table.getCellEditor().stopCellEditing()) {
      table.getCellEditor().cancelCellEditing();
    }
  }

  private final class Model extends AbstractTableModel {
    private static final long serialVersionUID = 1;

    @Override
    public int getRowCount() {
      return rows.size();
    }

    @Override
    public int getColumnCount() {
      return 2;
    }

    @Override
    public boolean isCellEditable(int row, int column) {
      return column == 1 && editable;
    }

    @Override
    public Object getValueAt(int row, int column) {
      return column == 0 ? rows.get(row).label : rows.get(row).value;
    }

    @Override
    public void setValueAt(Object value, int row, int column) {
      if (value != null && !value.equals(rows.get(row).value)) {
        rows.get(row).set.accept(value.toString());
      }
    }
  }

  private final class Table extends JTable {
    private static final long serialVersionUID = 1;

    Table() {
      super(model);
      setDefaultRenderer(Object.class, new DefaultTableCellRenderer() {
        private static final long serialVersionUID = 1;

        @Override
        public Component getTableCellRendererComponent(
            JTable of, Object value, boolean selected, boolean focused, int row, int column) {
          Component cell =
              super.getTableCellRendererComponent(of, value, selected, focused, row, column);
          boolean back = column == 0 || rows.get(row).faint || DIFFERENT.equals(value);
          cell.setForeground(back ? Theme.palette().faint : Theme.palette().text);
          setToolTipText(value.toString().isEmpty() ? null : value.toString());
          return cell;
        }
      });
    }

    /** The keyboard goes from value to value. */
    @Override
    public void changeSelection(int row, int column, boolean toggle, boolean extend) {
      super.changeSelection(row, 1, toggle, extend);
    }

    @Override
    public TableCellEditor getCellEditor(int row, int column) {
      Row edited = rows.get(row);
      if (edited.choices == null) {
        return new TextEditor(new JTextField(), edited.refusal);
      }
      JComboBox<String> box = new JComboBox<>(edited.choices.toArray(new String[0]));
      if (!edited.choices.contains(edited.value)) {
        box.addItem(edited.value);
      }
      return new DefaultCellEditor(box);
    }
  }

  /** Stays in the cell while what is typed is refused; what was only looked at is no edit. */
  private final class TextEditor extends DefaultCellEditor {
    private static final long serialVersionUID = 1;
    private final transient Function<String, String> refusal;
    private final JTextField field;

    TextEditor(JTextField field, Function<String, String> refusal) {
      super(field);
      this.field = field;
      this.refusal = refusal;
      field.setBorder(new FlatBorder(new Insets(1, 4, 1, 4)));
      TextCommit.onChange(field, this::check);
    }

    private boolean check() {
      typed = true;
      String reason = refusal.apply(field.getText());
      TextCommit.markRefused(field, complaint, reason);
      return reason == null;
    }

    @Override
    public Component getTableCellEditorComponent(
        JTable of, Object value, boolean selected, int row, int column) {
      Component editor = super.getTableCellEditorComponent(
          of, DIFFERENT.equals(value) ? "" : value, selected, row, column);
      field.selectAll();
      TextCommit.markRefused(field, complaint, null);
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
      TextCommit.markRefused(field, complaint, null);
      super.cancelCellEditing();
    }
  }
}
