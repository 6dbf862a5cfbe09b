package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.OutlineException;
import com.olvane.kep.olvane.outline.Store;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.concurrent.Callable;
import java.util.concurrent.CancellationException;
import java.util.concurrent.CopyOnWriteArrayList;
import java.util.function.Consumer;
import javax.swing.SwingUtilities;

/**
 * One open outline and its window's state. Its methods are called on the event thread, where its
 * listeners hear of what came of them; the outline is used on a work thread only, one call after
 * the other.
 */
final class Workspace {
  private final Store store;
  private final Outline outline;
  /** The outline of the database, locked, where {@link #outline} is work that was found kept. */
  private final Outline locked;
  private final UnsavedWork unsaved;
  private final EditContext context;
  private final History history = new History();
  private final WorkThread work = new WorkThread();
  private final List<WorkspaceListener> listeners = new CopyOnWriteArrayList<>();
  private volatile List<Member> selection = Collections.emptyList();
  private volatile long members;

  /**
   * Takes over an outline that was opened.
   *
   * @param members the number of its members
   */
  Workspace(Store store, Outline outline, long members) {
    this(store, outline, null, members);
  }

  private Workspace(Store store, Outline outline, Outline locked, long members) {
    this.store = store;
    this.outline = outline;
    this.locked = locked;
    this.members = members;
    this.context = new EditContext(outline);
    this.unsaved = new UnsavedWork(store, application(), database());
    if (locked != null) {
      unsaved.found();
      history.neverSaved();
    }
  }

  /**
   * Takes over unsaved work that was found.
   *
   * @param found the work
   * @param locked the outline of its database, open for editing
   */
  static Workspace ofFound(Store store, Outline found, Outline locked, long members) {
    return new Workspace(store, found, locked, members);
  }

  Store store() {
    return store;
  }

  /** The outline, for use within {@link #read} and edits. */
  Outline outline() {
    return outline;
  }

  History history() {
    return history;
  }

  /** The number of members. */
  long members() {
    return members;
  }

  /** "Demo.World". */
  String name() {
    return application() + "." + database();
  }

  String application() {
    return (locked == null ? outline : locked).applicationName();
  }

  String database() {
    return (locked == null ? outline : locked).databaseName();
  }

  /** Whether it can be edited. */
  boolean isEditable() {
    return outline.isEditable();
  }

  void addListener(WorkspaceListener listener) {
    listeners.add(listener);
  }

  void removeListener(WorkspaceListener listener) {
    listeners.remove(listener);
  }

  private void tell(Consumer<WorkspaceListener> event) {
    for (WorkspaceListener listener : listeners) {
      event.accept(listener);
    }
  }

  /** Shows a failure, from any thread. */
  void fail(Exception failure) {
    SwingUtilities.invokeLater(() -> tell(listener -> listener.failed(failure)));
  }

  // ---- Reading ----

  /** Reads on the work thread; {@code then} takes what was read on the event thread. */
  <T> void read(Callable<T> reading, Consumer<T> then) {
    work.read(() -> {
      try {
        T result = reading.call();
        SwingUtilities.invokeLater(() -> then.accept(result));
      } catch (CancellationException e) {
        // Given up by the user, who knows.
      } catch (Exception e) {
        fail(e);
      }
    });
  }

  // ---- Long work ----

  /** What runs and takes its time. */
  final class BusyWork implements WorkspaceListener.Busy {
    private final String title;
    private final boolean canCancel;
    private volatile double share = -1;
    private volatile boolean cancelled;

    private BusyWork(String title, boolean canCancel) {
      this.title = title;
      this.canCancel = canCancel;
    }

    @Override
    public String title() {
      return title;
    }

    @Override
    public double share() {
      return share;
    }

    @Override
    public boolean canCancel() {
      return canCancel;
    }

    @Override
    public void cancel() {
      cancelled = true;
    }

    /** Takes note of how far it is and lets readers in; false when it is to be given up. */
    boolean at(long done, long total) {
      share = total == 0 ? -1 : (double) done / total;
      work.letReadersIn();
      return !cancelled;
    }
  }

  private interface LongWork {
    void run(BusyWork busy) throws Exception;
  }

  /** Does something that takes time and can't be given up; {@code then} follows success. */
  <T> void run(String title, Callable<T> task, Consumer<T> then) {
    start(title, false, running -> {
      T result = task.call();
      SwingUtilities.invokeLater(() -> then.accept(result));
    });
  }

  private void start(String title, boolean canCancel, LongWork task) {
    work.write(() -> {
      BusyWork running = new BusyWork(title, canCancel);
      SwingUtilities.invokeLater(() -> setBusy(running));
      try {
        task.run(running);
      } catch (CancellationException e) {
        // Given up by the user, who knows.
      } catch (Exception e) {
        fail(e);
      } finally {
        SwingUtilities.invokeLater(() -> setBusy(null));
      }
    });
  }

  private void setBusy(BusyWork running) {
    tell(listener -> listener.busy(running));
  }

  // ---- Editing ----

  /** Carries an edit out and enters it into the history. */
  void edit(Edit edit) {
    edit(edit, () -> {});
  }

  /** The same; {@code then} follows success, when all listeners have heard of it. */
  void edit(Edit edit, Runnable then) {
    start(edit.title(), true, running -> {
      change(running, edit::apply, () -> history.add(edit));
      SwingUtilities.invokeLater(then);
    });
  }

  /** The same for an edit that belongs to the one before, as naming what was just made. */
  void editFurther(Edit edit, String title) {
    start(title, true, running -> change(running, edit::apply, () -> history.join(edit, title)));
  }

  /** Takes the last edit back. */
  void undo() {
    start("Undo", false, running -> {
      Edit edit = history.toUndo();
      if (edit != null) {
        change(running, edit::revert, history::undone);
      }
    });
  }

  /** Carries the edit out again that was taken back last. */
  void redo() {
    start("Redo", false, running -> {
      Edit edit = history.toRedo();
      if (edit != null) {
        change(running, edit::apply, history::redone);
      }
    });
  }

  private void change(BusyWork running, Consumer<EditContext> step, Runnable entry) {
    context.begin(running::at);
    try {
      step.accept(context);
      entry.run();
    } finally {
      OutlineChange change = context.change();
      members += change.membersAdded();
      List<Member> selected = selectionAfter(change);
      SwingUtilities.invokeLater(() -> {
        tell(listener -> listener.changed(change));
        select(selected);
        tell(WorkspaceListener::historyChanged);
      });
    }
  }

  /** What is selected after an edit: what it names, else what was and still is there. */
  private List<Member> selectionAfter(OutlineChange change) {
    List<Member> after = new ArrayList<>();
    for (Ref ref : change.selection()) {
      if (ref.handle != 0) {
        after.add(context.member(ref));
      }
    }
    if (after.isEmpty()) {
      for (Member member : selection) {
        try {
          after.add(outline.read(member, Details.NONE));
        } catch (OutlineException e) {
          // It was deleted.
        }
      }
    }
    return after;
  }

  /** The members that are selected, as they were when they were read. */
  List<Member> selection() {
    return selection;
  }

  /** Selects members, also those that are selected already, as their details may have changed. */
  void select(List<Member> chosen) {
    selection = Collections.unmodifiableList(new ArrayList<>(chosen));
    tell(listener -> listener.selected(selection));
  }

  /** Whether there is something to save. */
  boolean dirty() {
    return history.dirty();
  }

  /** Saves the outline; {@code then} follows success. */
  void save(Runnable then) {
    run("Saving", () -> {
      if (locked == null) {
        outline.save();
      } else {
        store.localObjects().writeBack(outline, application(), database());
      }
      history.saved();
      unsaved.remove();
      return null;
    }, nothing -> {
      tell(WorkspaceListener::historyChanged);
      then.run();
    });
  }

  /** Keeps unsaved work aside; {@code then} gets the failure or null, on the event thread. */
  void keepAside(Consumer<Exception> then) {
    work.write(() -> {
      Exception failure = null;
      if (history.dirty()) {
        try {
          unsaved.keep(outline);
        } catch (RuntimeException e) {
          failure = e;
        }
      }
      Exception told = failure;
      SwingUtilities.invokeLater(() -> then.accept(told));
    });
  }

  /** Closes the outline behind the work that waits; what was not saved is gone. */
  void close(Runnable then) {
    work.write(() -> {
      try {
        outline.close();
        if (locked != null) {
          locked.close();
        }
      } catch (OutlineException e) {
        fail(e);
      }
      unsaved.remove();
      work.end();
      SwingUtilities.invokeLater(then);
    });
  }
}
