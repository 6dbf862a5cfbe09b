package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.defs.outline.HoldingBean;
import com.olvane.kep.olvane.outline.Member;
import java.awt.Component;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.Map;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JTable;
import javax.swing.table.AbstractTableModel;
import javax.swing.table.DefaultTableCellRenderer;
import net.miginfocom.swing.MigLayout;

/** The names of the generations or of the levels of a dimension; generated ones stand back. */
final class NamesGrid extends JPanel {
  private static final long serialVersionUID = 1;
  private static final int LIMIT = 80;

  private final transient Workspace workspace;
  private final boolean ofGenerations;
  private final Model model = new Model();
  private final JTable table = new JTable(model);
  private transient Member dimension;
  private transient Map<Integer, String> names = Collections.emptyMap();
  private transient List<Integer> numbers = new ArrayList<>();
  private transient List<String> given = Collections.emptyList();

  NamesGrid(Workspace workspace, boolean ofGenerations) {
    super(new MigLayout("insets 0, fillx, wrap 1, hidemode 3", "[grow,fill]"));
    this.workspace = workspace;
    this.ofGenerations = ofGenerations;
    String title = ofGenerations ? "Generations" : "Levels";
    JLabel complaint = new JLabel();
    complaint.setVisible(false);
    table.setName(title);
    Grids.style(table, 2);
    table.getColumnModel().getColumn(0).setMaxWidth(70);
    table.setDefaultEditor(Object.class, new CheckedEditor(complaint,
        text -> HoldingBean.encodedLength(text) > LIMIT ? TextCommit.tooLong(text, LIMIT) : null));
    table.getColumnModel().getColumn(1).setCellRenderer(new DefaultTableCellRenderer() {
      private static final long serialVersionUID = 1;

      @Override
      public Component getTableCellRendererComponent(
          JTable of, Object value, boolean selected, boolean focused, int row, int column) {
        Component cell =
            super.getTableCellRendererComponent(of, value, selected, focused, row, column);
        cell.setForeground(
            given.contains(value) ? Theme.palette().text : Theme.palette().faint);
        return cell;
      }
    });
    add(DetailsPane.heading(title, table));
    add(Grids.scroll(table));
    add(complaint);
  }

  private final class Model extends AbstractTableModel {
    private static final long serialVersionUID = 1;

    @Override
    public int getRowCount() {
      return numbers.size();
    }

    @Override
    public int getColumnCount() {
      return 2;
    }

    @Override
    public String getColumnName(int column) {
      return column == 0 ? "Number" : "Name";
    }

    @Override
    public boolean isCellEditable(int row, int column) {
      return column == 1;
    }

    @Override
    public Object getValueAt(int row, int column) {
      return column == 0 ? numbers.get(row) : names.get(numbers.get(row));
    }

    @Override
    public void setValueAt(Object value, int row, int column) {
      if (!value.equals(getValueAt(row, column))) {
        workspace.edit(DimensionEdits.name(
            dimension, ofGenerations, numbers.get(row), value.toString()));
      }
    }
  }

  void show(DimensionPane.Reading read) {
    if (table.isEditing() && read.dimension.equals(dimension)) {
      return;
    }
    dimension = read.dimension;
    names = ofGenerations ? read.generations : read.levels;
    given = ofGenerations ? read.givenGenerations : read.givenLevels;
    numbers = new ArrayList<>(names.keySet());
    model.fireTableDataChanged();
    Grids.resize(table, 2);
  }

  void flush() {
    Grids.stopEditing(table);
  }
}
