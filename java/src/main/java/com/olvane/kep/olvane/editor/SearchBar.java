package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Search;
import java.awt.event.KeyEvent;
import java.text.NumberFormat;
import javax.swing.JButton;
import javax.swing.JCheckBoxMenuItem;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JPopupMenu;
import javax.swing.JTextField;
import javax.swing.KeyStroke;
import javax.swing.Timer;
import net.miginfocom.swing.MigLayout;

/** The search field above the tree: finds while one types, batch by batch. */
final class SearchBar extends JPanel {
  private static final long serialVersionUID = 1;
  private static final int TYPING_MILLIS = 250;

  private final EditorWindow window;
  private final transient SearchTask search;
  private final JTextField field = new JTextField();
  private final JLabel count = new JLabel();
  private final JButton cancel = new JButton("Stop");
  private final JCheckBoxMenuItem aliases = new JCheckBoxMenuItem("Search aliases", true);
  private final JCheckBoxMenuItem formulas = new JCheckBoxMenuItem("Search formulas");
  private final JCheckBoxMenuItem udas = new JCheckBoxMenuItem("Search user-defined attributes");
  private final JCheckBoxMenuItem matchCase = new JCheckBoxMenuItem("Match case");
  private final JCheckBoxMenuItem wholeWords = new JCheckBoxMenuItem("Whole words");
  private final Timer typing = new Timer(TYPING_MILLIS, event -> start());

  SearchBar(EditorWindow window, SearchTask search) {
    super(new MigLayout("insets 6 8 6 8, gap 4, hidemode 3", "[grow,fill][][][][]"));
    this.window = window;
    this.search = search;
    typing.setRepeats(false);
    field.setName("search");
    field.getAccessibleContext().setAccessibleName("Search for members");
    field.setToolTipText("Search the outline; Enter goes to the next member found");
    count.setName("search count");
    JPopupMenu options = options();
    JButton where = new JButton("Where");
    where.setToolTipText("What is searched, and how");
    where.addActionListener(event -> options.show(where, 0, where.getHeight()));
    cancel.addActionListener(event -> search.cancel());
    cancel.setVisible(false);
    add(field, "wmin 80");
    add(count);
    add(cancel);
    add(where);
    Listen.onChange(field, typing::restart);
    field.addActionListener(event -> {
      if (typing.isRunning()) {
        start();
      } else {
        search.next(1);
      }
    });
    field.registerKeyboardAction(event -> leave(),
        KeyStroke.getKeyStroke(KeyEvent.VK_ESCAPE, 0), WHEN_FOCUSED);
    field.registerKeyboardAction(event -> window.tree().requestFocusInWindow(),
        KeyStroke.getKeyStroke(KeyEvent.VK_DOWN, 0), WHEN_FOCUSED);
    search.onProgress(this::showProgress);
    addCommands();
  }

  private JPopupMenu options() {
    JPopupMenu menu = new JPopupMenu();
    for (JCheckBoxMenuItem item : new JCheckBoxMenuItem[] {
      aliases, formulas, udas, matchCase, wholeWords}) {
      item.addActionListener(event -> start());
      menu.add(item);
    }
    return menu;
  }

  private void addCommands() {
    Commands commands = window.commands();
    window.addToMenu("Search", commands.add("find", "Find \u2026", "ctrl F",
        "Search for members", () -> {
          field.requestFocusInWindow();
          field.selectAll();
        }));
    window.addToMenu("Search", commands.add("find-next", "Next", "F3",
        "Go to the next member found", search::hasHits, () -> search.next(1)));
    window.addToMenu("Search", commands.add("find-previous", "Previous", "shift F3",
        "Go to the previous member found", search::hasHits, () -> search.next(-1)));
    window.tree().typed = letter -> {
      field.setText(letter.toString());
      field.requestFocusInWindow();
    };
  }

  private void leave() {
    if (search.isRunning()) {
      search.cancel();
    } else {
      window.tree().requestFocusInWindow();
    }
  }

  private void start() {
    typing.stop();
    if (field.getText().isEmpty()) {
      search.clear();
      return;
    }
    Search wanted = new Search(field.getText());
    if (aliases.isSelected()) {
      wanted.aliases();
    }
    if (formulas.isSelected()) {
      wanted.formulas();
    }
    if (udas.isSelected()) {
      wanted.udas();
    }
    if (matchCase.isSelected()) {
      wanted.matchCase();
    }
    if (wholeWords.isSelected()) {
      wanted.wholeWords();
    }
    String table = window.tree().aliasTable();
    search.start(wanted, table.isEmpty() ? Details.NONE : Details.NONE.aliases(table));
  }

  private void showProgress() {
    NumberFormat numbers = NumberFormat.getIntegerInstance();
    int hits = search.hits().size();
    String found = hits == 0 ? "none" : search.position() < 0 ? numbers.format(hits)
        : numbers.format(search.position() + 1) + " of " + numbers.format(hits);
    count.setText(field.getText().isEmpty() ? ""
        : search.isRunning()
            ? found + ", " + numbers.format(search.searched()) + " searched" : found);
    cancel.setVisible(search.isRunning());
    window.commands().update();
  }
}
