package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.OutlineException;
import java.awt.BorderLayout;
import java.awt.event.MouseAdapter;
import java.awt.event.MouseEvent;
import java.util.ArrayList;
import java.util.Collections;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.stream.Collectors;
import javax.swing.BorderFactory;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import javax.swing.JTable;
import javax.swing.ListSelectionModel;
import javax.swing.table.AbstractTableModel;

/** The members that a search found, with their paths, which are read when they come into view. */
final class HitsPane extends JPanel {
  private static final long serialVersionUID = 1;
  private static final int PATHS_AT_ONCE = 100;

  private final transient Workspace workspace;
  private final transient SearchTask search;
  private final transient Map<Integer, String> paths = new HashMap<>();
  private final transient List<Member> asked = new ArrayList<>();
  private final JTable table;
  private int shown;
  private final AbstractTableModel model = new AbstractTableModel() {
    private static final long serialVersionUID = 1;

    @Override
    public int getRowCount() {
      return search.hits().size();
    }

    @Override
    public int getColumnCount() {
      return 2;
    }

    @Override
    public String getColumnName(int column) {
      return column == 0 ? "Member" : "Path";
    }

    @Override
    public Object getValueAt(int row, int column) {
      Member member = search.hits().get(row);
      return column == 0 ? member.name() : path(member);
    }
  };

  HitsPane(Workspace workspace, SearchTask search) {
    super(new BorderLayout());
    this.workspace = workspace;
    this.search = search;
    table = new JTable(model);
    Theme.style(table);
    table.setName("hits");
    table.getAccessibleContext().setAccessibleName("Members found");
    table.setSelectionMode(ListSelectionModel.SINGLE_SELECTION);
    table.getColumnModel().getColumn(0).setPreferredWidth(200);
    table.getColumnModel().getColumn(1).setPreferredWidth(480);
    table.addMouseListener(new MouseAdapter() {
      @Override
      public void mouseClicked(MouseEvent event) {
        if (table.getSelectedRow() >= 0) {
          search.go(table.getSelectedRow());
        }
      }
    });
    JLabel hint = new JLabel("Type into the search field above the tree; click a member to go to it.");
    hint.setBorder(BorderFactory.createEmptyBorder(8, 10, 8, 10));
    add(hint, BorderLayout.NORTH);
    JScrollPane scroll = new JScrollPane(table);
    scroll.setBorder(BorderFactory.createEmptyBorder());
    add(scroll);
    search.onProgress(this::follow);
    workspace.addListener(new WorkspaceListener() {
      @Override
      public void changed(OutlineChange change) {
        paths.clear();
        table.repaint();
      }
    });
  }

  private void follow() {
    int now = search.hits().size();
    if (now < shown || now > 0 && shown == 0) {
      model.fireTableDataChanged();
    } else if (now > shown) {
      model.fireTableRowsInserted(shown, now - 1);
    }
    shown = now;
    int position = search.position();
    if (position >= 0 && position < now && table.getSelectedRow() != position) {
      table.setRowSelectionInterval(position, position);
      table.scrollRectToVisible(table.getCellRect(position, 0, true));
    }
  }

  private String path(Member member) {
    String path = paths.get(member.handle());
    if (path == null) {
      paths.put(member.handle(), "\u2026");
      asked.add(member);
      if (asked.size() == 1) {
        workspace.read(() -> null, nothing -> readPaths());
      }
    }
    return path == null ? "\u2026" : path;
  }

  private void readPaths() {
    List<Member> some = new ArrayList<>(asked.subList(0, Math.min(PATHS_AT_ONCE, asked.size())));
    asked.clear();
    workspace.read(() -> some.stream().map(one -> path(workspace.outline(), one))
        .collect(Collectors.toList()), found -> {
          for (int i = 0; i < some.size(); i++) {
            paths.put(some.get(i).handle(), found.get(i));
          }
          table.repaint();
        });
  }

  private static String path(Outline outline, Member member) {
    try {
      List<Member> above = new ArrayList<>(outline.ancestors(member, Details.NONE));
      Collections.reverse(above);
      return above.stream().map(Member::name).collect(Collectors.joining(" \u203a "));
    } catch (OutlineException e) {
      return "deleted";
    }
  }
}
