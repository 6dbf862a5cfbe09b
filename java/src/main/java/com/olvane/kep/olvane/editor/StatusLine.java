package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.standin.StoreLock;
import java.awt.event.HierarchyEvent;
import java.text.NumberFormat;
import javax.swing.BorderFactory;
import javax.swing.JButton;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JProgressBar;
import javax.swing.Timer;
import net.miginfocom.swing.MigLayout;

/** The line below: messages, what is being done, and the state of the outline. */
final class StatusLine extends JPanel {
  private static final long serialVersionUID = 1;
  private static final int MESSAGE_MILLIS = 8000;
  private static final int PATIENCE_MILLIS = 300;

  private final transient Workspace workspace;
  private final JLabel message = new JLabel(" ");
  private final JLabel saved = new JLabel();
  private final JLabel lock = new JLabel();
  private final JLabel members = new JLabel();
  private final JLabel memory = new JLabel();
  private final JProgressBar bar = new JProgressBar();
  private final JButton cancel = new JButton("Cancel");
  private final transient NumberFormat numbers = NumberFormat.getIntegerInstance();
  private final Timer forget;
  private final Timer watch;
  private long since;
  private transient Busy busy;

  StatusLine(Workspace workspace) {
    super(new MigLayout(
        "insets 1 8 1 8, hidemode 3", "[grow]12[]12[]12[]12[]", "[24!]"));
    this.workspace = workspace;
    setBorder(BorderFactory.createEmptyBorder());
    message.setName("message");
    saved.setName("saved");
    members.setName("members");
    bar.setName("progress");
    cancel.setName("cancel");
    cancel.addActionListener(event -> {
      if (busy != null) {
        busy.cancel();
      }
    });
    add(message, "wmin 0");
    add(bar, "w 140!");
    add(cancel, "h 22!");
    add(saved);
    add(lock);
    add(members);
    add(memory);
    bar.setVisible(false);
    cancel.setVisible(false);
    forget = new Timer(MESSAGE_MILLIS, event -> message.setText(" "));
    forget.setRepeats(false);
    watch = new Timer(100, event -> watchWork());
    Timer measure = new Timer(2000, event -> showMemory());
    workspace.busy.hear(this::begin);
    workspace.historyChanged.hear(history -> showState());
    addHierarchyListener(event -> {
      if ((event.getChangeFlags() & HierarchyEvent.SHOWING_CHANGED) != 0) {
        if (isShowing()) {
          measure.start();
        } else {
          measure.stop();
        }
      }
    });
    showState();
    showMemory();
    showLock();
  }

  /** Shows a sentence for a while. */
  void say(String sentence) {
    message.setText(sentence.isEmpty() ? " " : sentence);
    forget.restart();
  }

  private void begin(Busy work) {
    busy = work;
    since = System.nanoTime();
    if (work == null) {
      watch.stop();
      if (bar.isVisible()) {
        say("");
      }
      bar.setVisible(false);
      cancel.setVisible(false);
    } else {
      watch.start();
    }
  }

  private void watchWork() {
    if (busy == null) {
      return;
    }
    long millis = (System.nanoTime() - since) / 1_000_000;
    if (millis < PATIENCE_MILLIS) {
      return;
    }
    bar.setVisible(true);
    cancel.setVisible(busy.canCancel);
    double share = busy.share();
    bar.setIndeterminate(share < 0);
    bar.setValue((int) (share * 100));
    forget.stop();
    message.setText(busy.title + " \u2026 " + millis / 1000 + " s");
  }

  private void showState() {
    saved.setText(!workspace.isEditable() ? "Read only"
        : workspace.dirty() ? "Unsaved changes" : "Saved");
    members.setText(numbers.format(workspace.members()) + " members");
  }

  private void showMemory() {
    Runtime runtime = Runtime.getRuntime();
    memory.setText((runtime.totalMemory() - runtime.freeMemory() >> 20) + " MB");
    memory.setToolTipText("Memory that the program uses, of at most "
        + (runtime.maxMemory() >> 20) + " MB");
  }

  private void showLock() {
    String object =
        workspace.application() + "/" + workspace.database() + "/" + workspace.database();
    workspace.read(() -> {
      for (StoreLock one : workspace.store.locks()) {
        if (one.object().equals(object)) {
          return "Locked by " + one.user();
        }
      }
      return "Not locked";
    }, lock::setText);
  }
}
