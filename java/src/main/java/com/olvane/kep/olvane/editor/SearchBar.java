package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Search;
import java.awt.Graphics;
import java.util.LinkedHashMap;
import java.util.Map;
import java.util.function.Consumer;
import javax.swing.JButton;
import javax.swing.JCheckBoxMenuItem;
import javax.swing.JLabel;
import javax.swing.JMenu;
import javax.swing.JPanel;
import javax.swing.JPopupMenu;
import javax.swing.JTextField;
import javax.swing.Timer;
import net.miginfocom.swing.MigLayout;

/** The search field above the tree: finds while one types, batch by batch. */
final class SearchBar {
  private static final int TYPING_MILLIS = 250;

  final JPanel panel = new JPanel(
      new MigLayout("insets 6 8 6 8, gap 4, hidemode 3", "[grow,fill][][][][]"));
  private final EditorWindow window;
  private final SearchTask search;
  private final JTextField field = new JTextField() {
    @Override
    protected void paintComponent(Graphics g) {
      super.paintComponent(g);
      if (getText().isEmpty()) {
        Theme.smoothText(g);
        g.setColor(Theme.palette().faint);
        g.drawString("Search (Ctrl+F)", getInsets().left,
            getBaseline(getWidth(), getHeight()));
      }
    }
  };
  private final JLabel count = new JLabel();
  private final JButton cancel = new JButton("Stop");
  private final JPopupMenu options = new JPopupMenu();
  private final Map<JCheckBoxMenuItem, Consumer<Search>> wanted = new LinkedHashMap<>();
  private final Timer typing = new Timer(TYPING_MILLIS, event -> start());

  SearchBar(EditorWindow window, SearchTask search) {
    this.window = window;
    this.search = search;
    typing.setRepeats(false);
    field.setName("search");
    field.getAccessibleContext().setAccessibleName("Search for members");
    field.setToolTipText("Search the outline; Enter goes to the next member found");
    count.setName("search count");
    addOption("Search aliases", true, Search::aliases);
    addOption("Search formulas", false, Search::formulas);
    addOption("Search user-defined attributes", false, Search::udas);
    addOption("Match case", false, Search::matchCase);
    addOption("Whole words", false, Search::wholeWords);
    JButton where = new JButton("Search In \u2026");
    where.setToolTipText("What is searched, and how");
    where.addActionListener(event -> options.show(where, 0, where.getHeight()));
    cancel.addActionListener(event -> search.cancel());
    cancel.setVisible(false);
    panel.add(field, "wmin 80");
    panel.add(count);
    panel.add(cancel);
    panel.add(where);
    Listen.onChange(field, typing::restart);
    Listen.undo(field);
    Listen.onKey(field, "ENTER", () -> {
      if (typing.isRunning()) {
        start();
      } else {
        search.next(1);
      }
    });
    Listen.onKey(field, "ESCAPE", () -> {
      if (search.running) {
        search.cancel();
      } else {
        window.tree.requestFocusInWindow();
      }
    });
    Listen.onKey(field, "DOWN", window.tree::requestFocusInWindow);
    search.progress.hear(task -> showProgress());
    window.tree.typed = letter -> {
      field.setText(letter.toString());
      field.requestFocusInWindow();
    };
    addCommands(window.commands);
  }

  private void addOption(String text, boolean selected, Consumer<Search> option) {
    JCheckBoxMenuItem item = new JCheckBoxMenuItem(text, selected);
    item.addActionListener(event -> start());
    options.add(item);
    wanted.put(item, option);
  }

  private void addCommands(Commands commands) {
    JMenu menu = commands.menu("Search");
    commands.add(menu, "Find \u2026", "ctrl F", "Search for members", () -> {
      field.requestFocusInWindow();
      field.selectAll();
    });
    commands.add(menu, "Next", "F3", "Go to the next member found", () -> search.next(1))
        .when(() -> !search.hits.isEmpty());
    commands.add(menu, "Previous", "shift F3", "Go to the previous member found",
        () -> search.next(-1)).when(() -> !search.hits.isEmpty());
  }

  private void start() {
    typing.stop();
    if (field.getText().isEmpty()) {
      search.clear();
      return;
    }
    Search text = new Search(field.getText());
    wanted.forEach((item, option) -> {
      if (item.isSelected()) {
        option.accept(text);
      }
    });
    String table = window.tree.aliasTable;
    search.start(text, table.isEmpty() ? Details.NONE : Details.NONE.aliases(table));
  }

  private void showProgress() {
    int hits = search.hits.size();
    String found = hits == 0 ? "none" : search.position < 0 ? String.format("%,d", hits)
        : String.format("%,d of %,d", search.position + 1, hits);
    count.setText(field.getText().isEmpty() ? "" : !search.running ? found
        : String.format("%s, %,d searched", found, search.searched));
    cancel.setVisible(search.running);
    window.commands.update();
  }
}
