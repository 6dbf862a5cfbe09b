package com.olvane.kep.olvane.editor;

import java.util.Collections;
import java.util.List;
import java.util.stream.Collectors;
import java.util.stream.IntStream;
import javax.swing.JLabel;
import javax.swing.JPanel;

/** The steps that were done, and those that were undone; a double click goes back or forth. */
final class HistoryPane {
  private final Workspace workspace;
  private List<String> titles = Collections.emptyList();
  /** Steps by number; 0 stands for the outline as it was opened. */
  private final Listing<Integer> listing = new Listing<Integer>("history")
      .column("Step", 480, step -> step == 0 ? "Opened" : titles.get(step - 1))
      .column("State", 120, this::state);
  final JPanel panel =
      listing.pane(new JLabel("Double-click a step to go back to it, or forth."));

  HistoryPane(Workspace workspace) {
    this.workspace = workspace;
    listing.onChoice(2, this::go);
    workspace.historyChanged.hear(this::show);
    show(workspace.history);
  }

  private String state(int step) {
    int now = workspace.history.position();
    return step == now ? "now" : step > now ? "undone" : "";
  }

  private void show(History history) {
    titles = history.titles();
    listing.show(IntStream.rangeClosed(0, titles.size()).boxed().collect(Collectors.toList()));
    listing.choose(Math.min(history.position(), titles.size()));
  }

  /** Undoes or does again until a step is the last one done. */
  private void go(int step) {
    int now = workspace.history.position();
    for (int i = step; i < now; i++) {
      workspace.undo();
    }
    for (int i = now; i < step; i++) {
      workspace.redo();
    }
  }
}
