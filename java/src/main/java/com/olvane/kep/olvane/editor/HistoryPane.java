package com.olvane.kep.olvane.editor;

import java.awt.BorderLayout;
import java.util.Arrays;
import java.util.List;
import java.util.stream.Collectors;
import java.util.stream.IntStream;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JScrollPane;

/** The steps that were done, and those that were undone; a double click goes back or forth. */
final class HistoryPane extends JPanel {
  private static final long serialVersionUID = 1;

  private final transient Workspace workspace;
  private transient List<String> titles;
  /** Steps by number; 0 stands for the outline as it was opened. */
  private final transient Listing<Integer> listing = new Listing<>("history",
      new String[] {"Step", "State"}, new int[] {480, 120}, Arrays.asList(
          step -> step == 0 ? "Opened" : titles.get(step - 1), this::state));

  HistoryPane(Workspace workspace) {
    super(new BorderLayout());
    this.workspace = workspace;
    JLabel hint = new JLabel("Double-click a step to go back to it, or forth.");
    hint.setBorder(Theme.space(8, 10));
    JScrollPane scroll = new JScrollPane(listing);
    scroll.setBorder(Theme.space(0, 0));
    add(hint, BorderLayout.NORTH);
    add(scroll);
    listing.onChoice(2, this::go);
    workspace.historyChanged.hear(history -> showSteps());
    showSteps();
  }

  private String state(int step) {
    int now = workspace.history().position();
    return step == now ? "now" : step > now ? "undone" : "";
  }

  private void showSteps() {
    titles = workspace.history().titles();
    listing.show(IntStream.rangeClosed(0, titles.size()).boxed().collect(Collectors.toList()));
    int now = Math.min(workspace.history().position(), titles.size());
    listing.setRowSelectionInterval(now, now);
    listing.scrollRectToVisible(listing.getCellRect(now, 0, true));
  }

  /** Undoes or does again until a step is the last one done. */
  private void go(int step) {
    int steps = step - workspace.history().position();
    for (int i = 0; i < Math.abs(steps); i++) {
      if (steps < 0) {
        workspace.undo();
      } else {
        workspace.redo();
      }
    }
  }
}
