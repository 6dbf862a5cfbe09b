package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.standin.StatusException;
import javax.swing.JButton;
import javax.swing.JComponent;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JProgressBar;
import javax.swing.Timer;
import net.miginfocom.swing.MigLayout;

/** The line below: messages, what is being done, and the state of the outline. */
final class StatusLine extends JPanel {
  private static final int MESSAGE_MILLIS = 8000;
  private static final int PATIENCE_MILLIS = 300;

  private final Workspace workspace;
  private final JLabel message = add("message", new JLabel(" "), "wmin 0");
  private final JProgressBar bar = add("progress", new JProgressBar(), "w 140!");
  private final JButton cancel = add("cancel", new JButton("Cancel"), "h 22!");
  private final JLabel saved = add("saved", new JLabel(), "");
  private final JLabel lock = add("lock", new JLabel(), "");
  private final JLabel members = add("members", new JLabel(), "");
  private final JLabel memory = add("memory", new JLabel(), "");
  private final Timer forget = new Timer(MESSAGE_MILLIS, event -> message.setText(" "));
  private final Timer watch = new Timer(100, event -> watchWork());
  private long since;
  private Busy busy;

  StatusLine(Workspace workspace) {
    super(new MigLayout("insets 1 8 1 8, hidemode 3", "[grow]12[]12[]12[]12[]", "[24!]"));
    this.workspace = workspace;
    bar.setVisible(false);
    cancel.setVisible(false);
    cancel.addActionListener(event -> {
      if (busy != null) {
        busy.cancelled = true;
      }
    });
    forget.setRepeats(false);
    Timer measure = new Timer(2000, event -> showMemory());
    workspace.busy.hear(this::begin);
    workspace.historyChanged.hear(history -> {
      showState();
      // Not with each edit: a store on a server may be slow to answer, or gone.
      if (!history.dirty()) {
        showLock();
      }
    });
    workspace.failed.hear(failure -> showLock());
    workspace.remarked.hear(this::say);
    Listen.onShowing(this, seen -> {
      if (seen) {
        measure.start();
      } else {
        measure.stop();
      }
    });
    showState();
    showMemory();
    showLock();
  }

  private <C extends JComponent> C add(String name, C part, String constraints) {
    part.setName(name);
    add(part, constraints);
    return part;
  }

  /** Shows a sentence for a while. */
  void say(String sentence) {
    message.setText(sentence.isEmpty() ? " " : sentence);
    // It may be wider than there is room.
    message.setToolTipText(sentence.isEmpty() ? null : sentence);
    forget.restart();
  }

  private void begin(Busy work) {
    Busy ended = busy;
    busy = work;
    since = System.nanoTime();
    if (work != null) {
      watch.start();
      return;
    }
    watch.stop();
    // What came of it may have been said already.
    if (ended != null && message.getText().startsWith(doing(ended))) {
      say("");
    }
    bar.setVisible(false);
    cancel.setVisible(false);
  }

  private void watchWork() {
    long millis = (System.nanoTime() - since) / 1_000_000;
    if (busy == null || millis < PATIENCE_MILLIS) {
      return;
    }
    bar.setVisible(true);
    cancel.setVisible(busy.canCancel);
    bar.setIndeterminate(busy.share < 0);
    bar.setValue((int) (busy.share * 100));
    forget.stop();
    message.setText(doing(busy) + millis / 1000 + " s");
  }

  private static String doing(Busy work) {
    return work.title + " \u2026 ";
  }

  private void showState() {
    saved.setText(!workspace.isEditable() ? "Read only"
        : workspace.history.dirty() ? "Unsaved changes" : "Saved");
    long count = workspace.members();
    members.setText(String.format("%,d %s", count, count == 1 ? "member" : "members"));
  }

  private void showMemory() {
    Runtime runtime = Runtime.getRuntime();
    memory.setText((runtime.totalMemory() - runtime.freeMemory() >> 20) + " MB");
    memory.setToolTipText("Memory that the program uses, of at most "
        + (runtime.maxMemory() >> 20) + " MB");
  }

  private void showLock() {
    workspace.read(() -> {
      try {
        return workspace.lock().map(one -> "Locked by " + one.user()).orElse("Not locked");
      } catch (StatusException | IllegalStateException e) {
        return "Lock not known";
      }
    }, lock::setText);
  }
}
