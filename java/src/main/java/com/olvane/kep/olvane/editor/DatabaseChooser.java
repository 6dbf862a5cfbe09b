package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.standin.StatusException;
import com.olvane.kep.olvane.standin.StoredDatabase;
import java.awt.event.ActionEvent;
import java.awt.event.MouseAdapter;
import java.awt.event.MouseEvent;
import java.awt.event.WindowAdapter;
import java.awt.event.WindowEvent;
import java.text.NumberFormat;
import java.time.ZoneId;
import java.time.format.DateTimeFormatter;
import java.time.format.FormatStyle;
import java.util.Collections;
import java.util.List;
import javax.swing.AbstractAction;
import javax.swing.JButton;
import javax.swing.JFrame;
import javax.swing.JLabel;
import javax.swing.JOptionPane;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import javax.swing.JTable;
import javax.swing.KeyStroke;
import javax.swing.ListSelectionModel;
import javax.swing.WindowConstants;
import javax.swing.table.AbstractTableModel;
import net.miginfocom.swing.MigLayout;

/** The list of the store's databases, to open one or make a new one. */
final class DatabaseChooser {
  private static final String[] COLUMNS = {"Application", "Database", "Members", "Saved"};

  private final Editor editor;
  private final JFrame frame = new JFrame("Outline Editor");
  private List<StoredDatabase> databases = Collections.emptyList();
  private final AbstractTableModel model = new AbstractTableModel() {
    private static final long serialVersionUID = 1;

    @Override
    public int getRowCount() {
      return databases.size();
    }

    @Override
    public int getColumnCount() {
      return COLUMNS.length;
    }

    @Override
    public String getColumnName(int column) {
      return COLUMNS[column];
    }

    @Override
    public Object getValueAt(int row, int column) {
      StoredDatabase one = databases.get(row);
      switch (column) {
        case 0:
          return one.application();
        case 1:
          return one.database();
        case 2:
          return NumberFormat.getIntegerInstance().format(one.members());
        default:
          return one.size() == 0 ? "never"
              : DateTimeFormatter.ofLocalizedDateTime(FormatStyle.MEDIUM, FormatStyle.SHORT)
                  .withZone(ZoneId.systemDefault()).format(one.saved());
      }
    }
  };
  private final JTable table = new JTable(model);
  private final JButton open = new JButton("Open");

  DatabaseChooser(Editor editor) {
    this.editor = editor;
    Theme.style(table);
    table.setName("databases");
    table.getAccessibleContext().setAccessibleName("Databases");
    table.getColumnModel().getColumn(3).setPreferredWidth(160);
    table.setSelectionMode(ListSelectionModel.SINGLE_SELECTION);
    table.getInputMap().put(KeyStroke.getKeyStroke("ENTER"), "open");
    table.getActionMap().put("open", new AbstractAction() {
      private static final long serialVersionUID = 1;

      @Override
      public void actionPerformed(ActionEvent event) {
        openChosen();
      }
    });
    table.addMouseListener(new MouseAdapter() {
      @Override
      public void mouseClicked(MouseEvent event) {
        if (event.getClickCount() == 2) {
          openChosen();
        }
      }
    });
    table.getSelectionModel().addListSelectionListener(
        event -> open.setEnabled(table.getSelectedRow() >= 0));
    open.addActionListener(event -> openChosen());
    open.setEnabled(false);
    JButton create = new JButton("New \u2026");
    create.addActionListener(event -> create());
    JPanel content = new JPanel(new MigLayout("insets 16, fill, wrap 1", "[560,grow,fill]",
        "[]8[320,grow,fill]12[]"));
    JLabel label = new JLabel("Choose the outline to edit.");
    label.setLabelFor(table);
    content.add(label);
    content.add(new JScrollPane(table));
    content.add(NamePrompt.buttonRow(create, open));
    frame.setContentPane(content);
    frame.getRootPane().setDefaultButton(open);
    frame.setDefaultCloseOperation(WindowConstants.HIDE_ON_CLOSE);
    frame.addWindowListener(new WindowAdapter() {
      @Override
      public void windowClosing(WindowEvent event) {
        frame.setVisible(false);
        editor.endWithoutWindows();
      }
    });
    frame.pack();
    frame.setLocationRelativeTo(null);
  }

  /** Shows the databases as they are now. */
  void show() {
    databases = editor.store().databases();
    model.fireTableDataChanged();
    if (!databases.isEmpty()) {
      table.setRowSelectionInterval(0, 0);
    }
    frame.setVisible(true);
    table.requestFocusInWindow();
  }

  boolean isShowing() {
    return frame.isShowing();
  }

  void dispose() {
    frame.dispose();
  }

  private void openChosen() {
    if (table.getSelectedRow() >= 0 && open.isEnabled()) {
      StoredDatabase chosen = databases.get(table.getSelectedRow());
      open(chosen.application(), chosen.database());
    }
  }

  private void open(String application, String database) {
    open.setEnabled(false);
    editor.open(application, database, frame, opened -> {
      open.setEnabled(true);
      frame.setVisible(!opened);
    });
  }

  private void create() {
    String[] names =
        DatabasePrompt.ask(table, "New Database", "Create", databases, false);
    if (names == null) {
      return;
    }
    try {
      editor.store().create(names[0], names[1]);
    } catch (StatusException e) {
      JOptionPane.showMessageDialog(
          frame, e.getMessage(), "Outline Editor", JOptionPane.WARNING_MESSAGE);
      return;
    }
    open(names[0], names[1]);
  }
}
