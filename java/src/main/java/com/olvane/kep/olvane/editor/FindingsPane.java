package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Finding;
import com.olvane.kep.olvane.outline.Member;
import java.awt.BorderLayout;
import java.awt.event.MouseAdapter;
import java.awt.event.MouseEvent;
import java.text.NumberFormat;
import java.util.Collections;
import java.util.List;
import javax.swing.BorderFactory;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import javax.swing.JTable;
import javax.swing.ListSelectionModel;
import javax.swing.table.AbstractTableModel;

/** What verification found; to choose a finding goes to its member. */
final class FindingsPane extends JPanel {
  private static final long serialVersionUID = 1;

  private final transient Workspace workspace;
  private final JLabel summary = new JLabel("Verify the outline to see what is wrong with it.");
  private transient List<Finding> findings = Collections.emptyList();
  private final JTable table;
  private final AbstractTableModel model = new AbstractTableModel() {
    private static final long serialVersionUID = 1;

    @Override
    public int getRowCount() {
      return findings.size();
    }

    @Override
    public int getColumnCount() {
      return 2;
    }

    @Override
    public String getColumnName(int column) {
      return column == 0 ? "Member" : "Finding";
    }

    @Override
    public Object getValueAt(int row, int column) {
      Finding finding = findings.get(row);
      return column == 1 ? finding.toString()
          : finding.handle() == 0 ? "The whole outline" : finding.member();
    }
  };

  FindingsPane(Workspace workspace) {
    super(new BorderLayout());
    this.workspace = workspace;
    summary.setName("findings summary");
    summary.setBorder(BorderFactory.createEmptyBorder(8, 10, 8, 10));
    table = new JTable(model);
    Theme.style(table);
    table.setName("findings");
    table.getAccessibleContext().setAccessibleName("Findings");
    table.setSelectionMode(ListSelectionModel.SINGLE_SELECTION);
    table.getColumnModel().getColumn(0).setPreferredWidth(160);
    table.getColumnModel().getColumn(1).setPreferredWidth(520);
    table.getSelectionModel().addListSelectionListener(event -> {
      if (!event.getValueIsAdjusting() && table.getSelectedRow() >= 0) {
        go(findings.get(table.getSelectedRow()));
      }
    });
    table.addMouseListener(new MouseAdapter() {
      @Override
      public void mouseClicked(MouseEvent event) {
        if (table.getSelectedRow() >= 0) {
          go(findings.get(table.getSelectedRow()));
        }
      }
    });
    JScrollPane scroll = new JScrollPane(table);
    scroll.setBorder(BorderFactory.createEmptyBorder());
    add(summary, BorderLayout.NORTH);
    add(scroll);
  }

  private void go(Finding finding) {
    if (finding.handle() != 0) {
      workspace.read(
          () -> workspace.outline().read(new int[] {finding.handle()}, Details.NONE).get(0),
          (Member member) -> workspace.select(Collections.singletonList(member)));
    }
  }

  /** Shows what was found. */
  void show(List<Finding> found) {
    findings = found;
    summary.setText(found.isEmpty() ? "Nothing is wrong with this outline."
        : NumberFormat.getIntegerInstance().format(found.size())
            + (found.size() == 1 ? " finding" : " findings")
            + ", as of the last verification. Click one to go to its member.");
    model.fireTableDataChanged();
  }

  /** What was found last. */
  List<Finding> findings() {
    return findings;
  }
}
