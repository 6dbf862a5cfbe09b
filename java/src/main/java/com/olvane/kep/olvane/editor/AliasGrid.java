package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.defs.outline.HoldingBean;
import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Member;
import java.util.Collections;
import java.util.List;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JTable;
import javax.swing.table.AbstractTableModel;
import net.miginfocom.swing.MigLayout;

/** The aliases of members in all alias tables. */
final class AliasGrid extends JPanel implements DetailsPane.Part {
  private static final long serialVersionUID = 1;
  /** Bytes of an alias that an outline keeps. */
  static final int LIMIT = 80;

  private final transient Workspace workspace;
  private final Model model = new Model();
  private final JTable table = new JTable(model);
  private transient List<Member> members = Collections.emptyList();

  AliasGrid(Workspace workspace) {
    super(new MigLayout("insets 0, fillx, wrap 1, hidemode 3", "[grow,fill]"));
    this.workspace = workspace;
    JLabel complaint = new JLabel();
    complaint.setVisible(false);
    table.setName("Aliases");
    Grids.style(table, 3);
    table.getColumnModel().getColumn(0).setPreferredWidth(70);
    table.getColumnModel().getColumn(1).setPreferredWidth(180);
    table.setDefaultEditor(Object.class, new CheckedEditor(complaint,
        text -> HoldingBean.encodedLength(text) > LIMIT ? TextCommit.tooLong(text, LIMIT) : null));
    add(DetailsPane.heading("Aliases", table));
    add(Grids.scroll(table));
    add(complaint);
  }

  private final class Model extends AbstractTableModel {
    private static final long serialVersionUID = 1;

    private List<String> tables() {
      return members.isEmpty()
          ? Collections.<String>emptyList() : members.get(0).details().aliasTables();
    }

    @Override
    public int getRowCount() {
      return tables().size();
    }

    @Override
    public int getColumnCount() {
      return 2;
    }

    @Override
    public String getColumnName(int column) {
      return column == 0 ? "Table" : "Alias";
    }

    @Override
    public boolean isCellEditable(int row, int column) {
      return column == 1;
    }

    @Override
    public Object getValueAt(int row, int column) {
      String name = tables().get(row);
      if (column == 0) {
        return name;
      }
      String common = DetailsPane.common(members, member -> member.alias(name));
      return common == null ? Hint.DIFFERENT : common;
    }

    @Override
    public void setValueAt(Object value, int row, int column) {
      if (value.equals(getValueAt(row, column))) {
        return;
      }
      String name = tables().get(row);
      workspace.edit(MemberEdits.change(
          MemberEdits.title("Set the alias in " + name + " of", members), members,
          member -> new Changes().alias(name, value.toString())));
    }
  }

  @Override
  public void show(List<Member> now, boolean again) {
    if (again && table.isEditing()) {
      members = now;
      return;
    }
    boolean same = !members.isEmpty()
        && members.get(0).details().aliasTables().equals(now.get(0).details().aliasTables());
    members = now;
    if (same) {
      model.fireTableRowsUpdated(0, model.getRowCount() - 1);
    } else {
      model.fireTableDataChanged();
      Grids.resize(table, 3);
    }
  }

  @Override
  public void flush() {
    Grids.stopEditing(table);
  }
}
