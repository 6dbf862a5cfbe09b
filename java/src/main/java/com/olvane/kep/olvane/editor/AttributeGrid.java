package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Attribute;
import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import java.util.ArrayList;
import java.util.Collections;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.stream.Collectors;
import java.util.stream.Stream;
import javax.swing.DefaultCellEditor;
import javax.swing.JComboBox;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JTable;
import javax.swing.table.AbstractTableModel;
import javax.swing.table.TableCellEditor;
import net.miginfocom.swing.MigLayout;

/** The attribute members that members are associated with, one row per attribute dimension. */
final class AttributeGrid extends JPanel implements DetailsPane.Part {
  private static final long serialVersionUID = 1;
  /** A dimension with more members has its attributes typed in instead of chosen. */
  private static final int MOST_CHOICES = 300;
  private static final String NONE = "(none)";

  private final transient Workspace workspace;
  private final Model model = new Model();
  private final JTable table;
  private final JLabel complaint = new JLabel();
  private transient List<Member> members = Collections.emptyList();
  /** The attribute dimensions of the members' dimension, each with its members' names. */
  private transient Map<String, List<String>> choices = Collections.emptyMap();

  AttributeGrid(Workspace workspace) {
    super(new MigLayout("insets 0, fillx, wrap 1, hidemode 3", "[grow,fill]"));
    this.workspace = workspace;
    complaint.setVisible(false);
    table = new JTable(model) {
      private static final long serialVersionUID = 1;

      @Override
      public TableCellEditor getCellEditor(int row, int column) {
        return editor(row);
      }
    };
    table.setName("Attributes");
    Grids.style(table, 1);
    table.getColumnModel().getColumn(0).setPreferredWidth(70);
    table.getColumnModel().getColumn(1).setPreferredWidth(180);
    add(DetailsPane.heading("Attributes", table));
    add(Grids.scroll(table));
    add(complaint);
  }

  private TableCellEditor editor(int row) {
    List<String> names = choices.get(dimension(row));
    if (names.size() > MOST_CHOICES) {
      return new CheckedEditor(complaint, text -> null);
    }
    JComboBox<String> box = new JComboBox<>();
    box.addItem(NONE);
    names.forEach(box::addItem);
    DefaultCellEditor editor = new DefaultCellEditor(box);
    editor.setClickCountToStart(1);
    return editor;
  }

  private String dimension(int row) {
    return new ArrayList<>(choices.keySet()).get(row);
  }

  /** The attributes of a member in one dimension, mostly one. */
  private static List<String> of(Member member, String dimension) {
    return member.attributes().stream().filter(one -> one.dimension().equals(dimension))
        .map(Attribute::name).collect(Collectors.toList());
  }

  private final class Model extends AbstractTableModel {
    private static final long serialVersionUID = 1;

    @Override
    public int getRowCount() {
      return choices.size();
    }

    @Override
    public int getColumnCount() {
      return 2;
    }

    @Override
    public String getColumnName(int column) {
      return column == 0 ? "Dimension" : "Attribute";
    }

    @Override
    public boolean isCellEditable(int row, int column) {
      return column == 1;
    }

    @Override
    public Object getValueAt(int row, int column) {
      String dimension = dimension(row);
      if (column == 0) {
        return dimension;
      }
      List<String> common = DetailsPane.common(members, member -> of(member, dimension));
      return common == null ? Hint.DIFFERENT
          : common.isEmpty() ? NONE : String.join(", ", common);
    }

    @Override
    public void setValueAt(Object value, int row, int column) {
      if (value == null || value.equals(getValueAt(row, column))) {
        return;
      }
      String dimension = dimension(row);
      String name = value.equals(NONE) ? "" : value.toString();
      String title = MemberEdits.title(
          name.isEmpty() ? "Remove " + dimension + " of" : "Set " + dimension + " of", members);
      workspace.edit(MemberEdits.change(title, members, member -> {
        Changes changes = new Changes();
        of(member, dimension).forEach(changes::withoutAttribute);
        return name.isEmpty() ? changes : changes.attribute(name);
      }));
    }
  }

  private Map<String, List<String>> readChoices(Member member) {
    Outline outline = workspace.outline();
    Map<String, List<String>> read = new LinkedHashMap<>();
    Member dimension = outline.read(
        new int[] {member.dimensionHandle()}, Details.NONE.attributes()).get(0);
    for (Attribute attribute : dimension.attributes()) {
      Member root = outline.read(new int[] {attribute.handle()}, Details.NONE).get(0);
      try (Stream<Member> all = outline.subtree(root, Details.NONE)) {
        read.put(root.name(), all.skip(1).limit(MOST_CHOICES + 1).map(Member::name)
            .collect(Collectors.toList()));
      }
    }
    return read;
  }

  @Override
  public void show(List<Member> now, boolean again) {
    boolean oneDimension = DetailsPane.common(now, Member::dimensionHandle) != null
        && now.stream().noneMatch(Member::isDimension);
    if (!oneDimension) {
      take(now, Collections.<String, List<String>>emptyMap());
      return;
    }
    members = now;
    workspace.read(() -> readChoices(now.get(0)), read -> {
      if (members == now) {
        take(now, read);
      }
    });
  }

  private void take(List<Member> now, Map<String, List<String>> read) {
    if (table.isEditing()) {
      table.getCellEditor().cancelCellEditing();
    }
    members = now;
    choices = read;
    model.fireTableDataChanged();
    Grids.resize(table, 1);
    setVisible(!read.isEmpty());
  }

  @Override
  public void flush() {
    Grids.stopEditing(table);
  }
}
