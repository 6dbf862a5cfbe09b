package com.olvane.kep.olvane.editor;

import java.awt.BorderLayout;
import java.awt.Component;
import java.awt.event.MouseAdapter;
import java.awt.event.MouseEvent;
import java.util.List;
import javax.swing.BorderFactory;
import javax.swing.DefaultListCellRenderer;
import javax.swing.DefaultListModel;
import javax.swing.JLabel;
import javax.swing.JList;
import javax.swing.JPanel;
import javax.swing.JScrollPane;

/** The steps that were done, and those that were undone; a double click goes back or forth. */
final class HistoryPane extends JPanel {
  private static final long serialVersionUID = 1;

  private final transient Workspace workspace;
  private final DefaultListModel<String> steps = new DefaultListModel<>();
  private final JList<String> list = new JList<>(steps);

  HistoryPane(Workspace workspace) {
    super(new BorderLayout());
    this.workspace = workspace;
    list.setName("history");
    list.getAccessibleContext().setAccessibleName("History");
    JLabel hint = new JLabel(
        "Double-click a step to go back to it, or forth. Undone steps stand back.");
    hint.setBorder(BorderFactory.createEmptyBorder(8, 10, 8, 10));
    add(hint, BorderLayout.NORTH);
    JScrollPane scroll = new JScrollPane(list);
    scroll.setBorder(BorderFactory.createEmptyBorder());
    add(scroll);
    list.setCellRenderer(new DefaultListCellRenderer() {
      private static final long serialVersionUID = 1;

      @Override
      public Component getListCellRendererComponent(
          JList<?> shown, Object value, int index, boolean selected, boolean focused) {
        super.getListCellRendererComponent(shown, value, index, selected, focused);
        setBorder(BorderFactory.createEmptyBorder(3, 10, 3, 10));
        if (index > workspace.history().position()) {
          setForeground(Theme.palette().faint);
        }
        return this;
      }
    });
    list.addMouseListener(new MouseAdapter() {
      @Override
      public void mouseClicked(MouseEvent event) {
        if (event.getClickCount() == 2 && list.getSelectedIndex() >= 0) {
          go(list.getSelectedIndex());
        }
      }
    });
    list.getInputMap().put(javax.swing.KeyStroke.getKeyStroke("ENTER"), "go");
    list.getActionMap().put("go", new javax.swing.AbstractAction() {
      private static final long serialVersionUID = 1;

      @Override
      public void actionPerformed(java.awt.event.ActionEvent event) {
        if (list.getSelectedIndex() >= 0) {
          go(list.getSelectedIndex());
        }
      }
    });
    workspace.addListener(new WorkspaceListener() {
      @Override
      public void historyChanged() {
        show(workspace.history().titles());
      }
    });
    show(workspace.history().titles());
  }

  private void show(List<String> titles) {
    steps.clear();
    steps.addElement("Opened");
    titles.forEach(steps::addElement);
    int position = workspace.history().position();
    list.setSelectedIndex(position);
    list.ensureIndexIsVisible(position);
  }

  /** Undoes or does again until a step is the last one done; 0 for none. */
  private void go(int position) {
    int steps = position - workspace.history().position();
    for (int i = 0; i < Math.abs(steps); i++) {
      if (steps < 0) {
        workspace.undo();
      } else {
        workspace.redo();
      }
    }
  }
}
