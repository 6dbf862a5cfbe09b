package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.defs.outline.DynamicTimeSeries;
import com.olvane.kep.olvane.defs.outline.HoldingBean;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;
import javax.swing.DefaultCellEditor;
import javax.swing.JComboBox;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JTable;
import javax.swing.table.AbstractTableModel;
import javax.swing.table.TableCellEditor;
import net.miginfocom.swing.MigLayout;

/** The dynamic time series: on which generation each is enabled, and its aliases. */
final class SeriesGrid extends JPanel {
  private static final long serialVersionUID = 1;
  /** The entries that there are, from the longest period to the shortest. */
  private static final List<String> STANDARD = Arrays.asList(
      "H-T-D", "Y-T-D", "S-T-D", "P-T-D", "Q-T-D", "M-T-D", "W-T-D", "D-T-D");
  private static final String OFF = "off";
  private static final int FIRST_ALIAS = 2;

  private final transient Workspace workspace;
  private final JLabel complaint = new JLabel();
  private final Model model = new Model();
  private final JTable table;
  private final List<String> rows = new ArrayList<>(STANDARD);
  private transient List<DynamicTimeSeries> enabled = Collections.emptyList();
  private List<String> tables = Collections.emptyList();
  private int generations;

  SeriesGrid(Workspace workspace) {
    super(new MigLayout("insets 0, fillx, wrap 1, hidemode 3", "[grow,fill]"));
    this.workspace = workspace;
    complaint.setVisible(false);
    table = new JTable(model) {
      private static final long serialVersionUID = 1;

      @Override
      public TableCellEditor getCellEditor(int row, int column) {
        return column == 1 ? generationEditor() : super.getCellEditor(row, column);
      }
    };
    table.setName("Dynamic time series");
    table.setDefaultEditor(Object.class, new CheckedEditor(complaint,
        text -> HoldingBean.encodedLength(text) > AliasGrid.LIMIT
            ? TextCommit.tooLong(text, AliasGrid.LIMIT) : null));
    Grids.style(table, 2);
    add(DetailsPane.heading("Dynamic time series", table));
    add(Grids.scroll(table));
    add(complaint);
  }

  private TableCellEditor generationEditor() {
    JComboBox<String> box = new JComboBox<>();
    box.addItem(OFF);
    for (int i = 1; i <= generations; i++) {
      box.addItem(Integer.toString(i));
    }
    return new DefaultCellEditor(box);
  }

  private DynamicTimeSeries entry(int row) {
    for (DynamicTimeSeries one : enabled) {
      if (one.getName().equals(rows.get(row))) {
        return one;
      }
    }
    return null;
  }

  private final class Model extends AbstractTableModel {
    private static final long serialVersionUID = 1;

    @Override
    public int getRowCount() {
      return rows.size();
    }

    @Override
    public int getColumnCount() {
      return FIRST_ALIAS + tables.size();
    }

    @Override
    public String getColumnName(int column) {
      return column == 0 ? "Series"
          : column == 1 ? "On generation" : tables.get(column - FIRST_ALIAS);
    }

    @Override
    public boolean isCellEditable(int row, int column) {
      return column == 1 || column >= FIRST_ALIAS && entry(row) != null;
    }

    @Override
    public Object getValueAt(int row, int column) {
      DynamicTimeSeries entry = entry(row);
      if (column == 0) {
        return rows.get(row);
      }
      if (column == 1) {
        return entry == null ? OFF : Short.toString(entry.getGeneration());
      }
      String alias =
          entry == null ? null : entry.getAliases().get(tables.get(column - FIRST_ALIAS));
      return alias == null ? "" : alias;
    }

    @Override
    public void setValueAt(Object value, int row, int column) {
      if (value == null || value.equals(getValueAt(row, column))) {
        return;
      }
      String name = rows.get(row);
      workspace.edit(column == 1
          ? DimensionEdits.series(name, value.equals(OFF) ? 0 : Integer.parseInt(value.toString()))
          : DimensionEdits.seriesAlias(
              name, tables.get(column - FIRST_ALIAS), value.toString()));
    }
  }

  void show(DimensionPane.Reading read) {
    if (table.isEditing()) {
      return;
    }
    enabled = read.series;
    generations = read.generations.size();
    rows.clear();
    rows.addAll(STANDARD);
    for (DynamicTimeSeries one : enabled) {
      if (!rows.contains(one.getName())) {
        rows.add(one.getName());
      }
    }
    if (tables.equals(read.tables)) {
      model.fireTableDataChanged();
    } else {
      tables = read.tables;
      model.fireTableStructureChanged();
      table.getColumnModel().getColumn(0).setMaxWidth(80);
      table.getColumnModel().getColumn(1).setPreferredWidth(110);
    }
    Grids.resize(table, 2);
  }

  void flush() {
    Grids.stopEditing(table);
  }
}
