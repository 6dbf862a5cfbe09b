package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Finding;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.OutlineException;
import com.olvane.kep.olvane.outline.Status;
import com.olvane.kep.olvane.outline.Store;
import com.olvane.kep.olvane.standin.StoreLock;
import com.olvane.kep.olvane.standin.StoredDatabase;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.Optional;
import java.util.concurrent.Callable;
import java.util.concurrent.CancellationException;
import java.util.function.Consumer;
import java.util.function.Function;
import javax.swing.SwingUtilities;

/**
 * One open outline and its window's state. Its methods are called on the event thread, where its
 * listeners hear of what came of them; the outline is used on a work thread only, one call after
 * the other.
 */
final class Workspace {
  /** The outline was opened, or, with false, not: nothing will come of this. */
  final Event<Boolean> opened = new Event<>();
  /** The outline was edited, or an edit undone. Members that are shown are out of date. */
  final Event<Workspace> changed = new Event<>();
  /** Other members are selected, or the same ones with other details. */
  final Event<List<Member>> selected = new Event<>();
  /** Something that takes time began, or, with null, ended. */
  final Event<Busy> busy = new Event<>();
  /** Something failed; the failure has the sentence. */
  final Event<Exception> failed = new Event<>();
  /** An edit was made, and there is a sentence to be said about it. */
  final Event<String> remarked = new Event<>();
  /** The outline was verified. */
  final Event<List<Finding>> verified = new Event<>();
  /** A text is being typed that is no edit yet. */
  final Event<RowField> typing = new Event<>();
  /** Undo, redo or the need to save changed. */
  final Event<History> historyChanged = new Event<>();

  final Store store;
  final String application;
  final String database;
  final UnsavedWork unsaved;
  /** The outline, for use within {@link #read} and edits. */
  volatile Outline outline;
  /** The outline of the database, locked: the same, or other than work that was found kept. */
  private Outline locked;
  private EditContext context;
  final History history = new History();
  private final WorkThread work = new WorkThread();
  private boolean previewing;
  private Edit preview;
  private volatile List<Member> selection = Collections.emptyList();
  private volatile long members;
  /** What the store tells of the outline since it was opened or saved here. */
  private volatile String stored;

  /** Prepares for an outline, which {@link #open} opens. */
  Workspace(Store store, String application, String database) {
    this.store = store;
    this.application = application;
    this.database = database;
    this.unsaved = new UnsavedWork(store, application, database);
  }

  /** Opens the outline before anything else; {@code opening} calls {@link #take} or lets it be. */
  void open(Callable<?> opening) {
    work.write(() -> {
      attempt(opening::call);
      boolean there = outline != null;
      SwingUtilities.invokeLater(() -> opened.tell(there));
      if (there) {
        // While the window comes up.
        attempt(this::noteStored);
        SwingUtilities.invokeLater(() -> historyChanged.tell(history));
      } else {
        work.end();
      }
    });
  }

  /**
   * Takes over an outline that was opened.
   *
   * @param held the outline of the database, open for editing; other than {@code opened} where that
   *     is unsaved work that was found
   */
  void take(Outline opened, Outline held) {
    outline = opened;
    locked = held;
    context = new EditContext(opened);
    if (held != opened) {
      history.neverSaved();
    }
  }

  private void noteStored() {
    Optional<StoredDatabase> now = stored();
    stored = describe(now);
    members = (locked == outline ? now : unsaved.found()).map(StoredDatabase::members).orElse(0L);
  }

  /** The number of members. */
  long members() {
    return members;
  }

  /** "Demo.World". */
  String name() {
    return application + "." + database;
  }

  /** Whether it can be edited. */
  boolean isEditable() {
    return outline != null && outline.isEditable();
  }

  /** Shows a failure, from any thread. */
  void fail(Exception failure) {
    SwingUtilities.invokeLater(() -> failed.tell(failure));
  }

  // ---- Reading and long work ----

  private interface Task {
    void run() throws Exception;
  }

  private interface LongTask {
    void run(EditContext.Progress progress) throws Exception;
  }

  private void attempt(Task task) {
    try {
      task.run();
    } catch (CancellationException e) {
      // Given up by the user, who knows.
    } catch (Exception e) {
      fail(e);
    }
  }

  private static <T> Task handOver(Callable<T> work, Consumer<T> then) {
    return () -> {
      T result = work.call();
      SwingUtilities.invokeLater(() -> then.accept(result));
    };
  }

  /** Reads on the work thread; {@code then} takes what was read on the event thread. */
  <T> void read(Callable<T> reading, Consumer<T> then) {
    work.read(() -> attempt(handOver(reading, then)));
  }

  /** Does something on the event thread when the edits that wait have been made. */
  void afterWork(Runnable then) {
    work.write(() -> SwingUtilities.invokeLater(then));
  }

  /** Does something that takes time and can't be given up; {@code then} follows success. */
  <T> void run(String title, Callable<T> task, Consumer<T> then) {
    start(title, false, progress -> handOver(task, then).run());
  }

  /** The same for a task that tells how far it is, when readers are let in. */
  <T> void run(String title, Function<EditContext.Progress, T> task, Consumer<T> then) {
    start(title, false, progress -> handOver(() -> task.apply(progress), then).run());
  }

  private void start(String title, boolean canCancel, LongTask task) {
    Busy running = new Busy(title, canCancel);
    work.write(() -> {
      SwingUtilities.invokeLater(() -> busy.tell(running));
      try {
        attempt(() -> task.run((done, total) -> {
          work.letReadersIn();
          return running.at(done, total);
        }));
      } finally {
        SwingUtilities.invokeLater(() -> busy.tell(null));
      }
    });
  }

  // ---- Editing ----

  /** Carries an edit out and enters it into the history. */
  void edit(Edit edit) {
    edit(edit, () -> {});
  }

  /** The same; {@code then} follows success, when all listeners have heard of it. */
  void edit(Edit edit, Runnable then) {
    if (previewing) {
      preview = edit;
      return;
    }
    change(edit.title(), true, () -> {
      edit.apply(context);
      history.add(edit);
    }, then);
  }

  /** The edit that would be made by something, which is not carried out; null for none. */
  Edit preview(Runnable making) {
    preview = null;
    previewing = true;
    making.run();
    previewing = false;
    return preview;
  }

  /** The same for an edit that belongs to the one before, as naming what was just made. */
  void editFurther(Edit edit, String title) {
    change(title, true, () -> {
      edit.apply(context);
      history.join(edit, title);
    }, () -> {});
  }

  /** Takes the last edit back. */
  void undo() {
    change("Undo", false, () -> history.undo(context), () -> {});
  }

  /** Carries the edit out again that was taken back last. */
  void redo() {
    change("Redo", false, () -> history.redo(context), () -> {});
  }

  private void change(String title, boolean canCancel, Task task, Runnable then) {
    start(title, canCancel, progress -> {
      context.begin(progress);
      try {
        task.run();
      } finally {
        members += context.membersAdded;
        List<Member> before = context.selection.isEmpty() ? selection : null;
        List<Member> after = selectionAfter();
        SwingUtilities.invokeLater(() -> {
          changed.tell(this);
          // Others may have been selected meanwhile.
          select(before == null || before == selection ? after : selection);
          historyChanged.tell(history);
        });
      }
      String remark = canCancel ? context.remark : "";
      SwingUtilities.invokeLater(() -> {
        remarked.tell(remark);
        then.run();
      });
    });
  }

  /** What is selected after an edit: what it names, else what was and still is there. */
  private List<Member> selectionAfter() {
    List<Member> after = new ArrayList<>();
    // Each once: members that went may have had the same parent.
    context.selection.stream().mapToInt(ref -> ref.handle).distinct().filter(handle -> handle != 0)
        .forEach(handle -> after.add(context.member(handle, Details.NONE)));
    if (after.isEmpty()) {
      selection.forEach(member -> after.addAll(readIfThere(member.handle(), Details.NONE)));
    }
    return after;
  }

  /** Reads a member that may have been deleted: one or none, on the work thread. */
  List<Member> readIfThere(int handle, Details details) {
    try {
      return outline.read(new int[] {handle}, details);
    } catch (OutlineException e) {
      return Collections.emptyList();
    }
  }

  /** The members that are selected, as they were when they were read. */
  List<Member> selection() {
    return selection;
  }

  /** Selects members, also those that are selected already, as their details may have changed. */
  void select(List<Member> chosen) {
    selection = Collections.unmodifiableList(new ArrayList<>(chosen));
    selected.tell(selection);
  }

  // ---- Saving and closing ----

  /** Saves the outline; {@code then} follows success. */
  void save(Runnable then) {
    run("Saving", () -> {
      if (locked == outline) {
        outline.save();
      } else {
        store.localObjects().writeBack(outline, application, database);
      }
      history.saved();
      // While the lock is held: later it might be somebody else's outline.
      attempt(() -> stored = describe(stored()));
      unsaved.remove();
      return history;
    }, saved -> {
      historyChanged.tell(saved);
      then.run();
    });
  }

  /** Whether saving failed as the lock is gone. */
  static boolean isLockGone(Exception failure) {
    int status = failure instanceof OutlineException ? ((OutlineException) failure).status() : 0;
    return status == Status.LOCK_LOST || status == Status.NOT_LOCKED;
  }

  /** Takes the lock again; {@code then} hears whether it could be, as nobody has saved since. */
  void lockAgain(Consumer<Boolean> then) {
    run("Locking", () -> locked.lockAgain(() -> describe(stored()).equals(stored)), then);
  }

  private static String describe(Optional<StoredDatabase> stored) {
    return stored.map(one -> one.saved() + " " + one.size() + " " + one.members()).orElse("");
  }

  /** Who edits the outline, if anybody does. */
  Optional<StoreLock> lock() {
    String object = application + "/" + database + "/" + database;
    return store.locks().stream().filter(one -> one.object().equals(object)).findFirst();
  }

  /** What the store knows of the database. */
  Optional<StoredDatabase> stored() {
    return store.databases().stream().filter(one -> one.application().equals(application)
        && one.database().equals(database)).findFirst();
  }

  /**
   * Keeps unsaved work aside, or removes what is kept when there is none.
   *
   * @param typed the edit that is being typed, null for none
   * @param then gets the failure or null, on the event thread
   */
  void keepAside(Edit typed, Consumer<Exception> then) {
    work.write(() -> {
      try {
        keepWith(typed);
        SwingUtilities.invokeLater(() -> then.accept(null));
      } catch (RuntimeException e) {
        SwingUtilities.invokeLater(() -> then.accept(e));
      }
    });
  }

  private void keepWith(Edit typed) {
    boolean applied = typed != null && applies(typed);
    try {
      if (applied || history.dirty()) {
        unsaved.keep(outline);
      } else {
        unsaved.remove();
      }
    } finally {
      if (applied) {
        typed.revert(context);
      }
    }
  }

  private boolean applies(Edit typed) {
    try {
      context.begin((done, total) -> true);
      typed.apply(context);
      return true;
    } catch (RuntimeException e) {
      // The outline will not take it, and whoever types it will be told.
      return false;
    }
  }

  /** Closes the outline behind the work that waits; what was not saved is gone. */
  void close(Runnable then) {
    work.write(() -> {
      attempt(outline::close);
      attempt(locked::close);
      unsaved.remove();
      work.end();
      SwingUtilities.invokeLater(then);
    });
  }
}
