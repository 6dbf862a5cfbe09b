package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Store;
import com.olvane.kep.olvane.standin.StoreLock;
import com.olvane.kep.olvane.standin.StoredDatabase;
import java.awt.Component;
import java.time.Instant;
import java.time.ZoneId;
import java.time.format.DateTimeFormatter;
import java.time.format.FormatStyle;
import java.util.Arrays;
import java.util.List;
import java.util.Optional;
import java.util.function.Consumer;

/** Opens an outline, and asks what to do where something speaks against opening as usual. */
final class Opening {
  private final Store store;
  private final String application;
  private final String database;
  private final Component parent;
  private final Consumer<Workspace> then;
  private final UnsavedWork unsaved;
  private Outline outline;
  /** What the store knows of the outline, and of unsaved work on it; null for nothing. */
  private StoredDatabase stored;
  private StoredDatabase found;

  /** Prepares to open; {@code then} takes the workspace, or null where none came of it. */
  Opening(Store store, String application, String database, Component parent,
      Consumer<Workspace> then) {
    this.store = store;
    this.application = application;
    this.database = database;
    this.parent = parent;
    this.then = then;
    unsaved = new UnsavedWork(store, application, database);
  }

  void start() {
    Editor.inBackground(() -> {
      outline = store.edit(application, database);
      found = unsaved.found();
      return workspace();
    }, workspace -> {
      if (found == null) {
        then.accept(workspace);
      } else {
        offerWork();
      }
    }, this::offerToRead);
  }

  private Workspace workspace() {
    stored = store.databases().stream().filter(one -> one.application().equals(application)
        && one.database().equals(database)).findFirst().orElse(null);
    return new Workspace(store, outline, stored == null ? 0 : stored.members());
  }

  private void giveUp(Exception failure) {
    Ask.say(parent, failure);
    then.accept(null);
  }

  private static String time(Instant instant) {
    return DateTimeFormatter.ofLocalizedDateTime(FormatStyle.MEDIUM)
        .withZone(ZoneId.systemDefault()).format(instant);
  }

  private void offerWork() {
    boolean savedSince = stored != null && stored.saved().isAfter(found.saved());
    // Enter takes the first, which loses nothing.
    List<String> answers = savedSince ? Arrays.asList("Cancel", "Restore", "Discard")
        : Arrays.asList("Restore", "Discard", "Cancel");
    int number = Ask.choose(parent,
        "There is unsaved work on " + application + "." + database + " of "
            + time(found.saved()) + ".\n"
            + (savedSince ? "The outline was saved since, " + time(stored.saved())
                    + "; what is restored knows nothing of that.\n" : "")
            + "Restore it to go on with it; the database keeps what is saved until you save.",
        answers.toArray());
    String answer = number < 0 ? "Cancel" : answers.get(number);
    Editor.inBackground(() -> {
      if (answer.equals("Restore")) {
        return new Workspace(store, unsaved.open(), outline, found.members());
      }
      if (answer.equals("Discard")) {
        unsaved.remove();
        return workspace();
      }
      outline.close();
      return null;
    }, then, failure -> {
      outline.close();
      giveUp(failure);
    });
  }

  private void offerToRead(Exception failure) {
    String object = application + "/" + database + "/" + database;
    Editor.inBackground(() -> store.locks().stream()
        .filter(one -> one.object().equals(object)).findFirst(),
        lock -> offerToRead(lock, failure), second -> giveUp(failure));
  }

  private void offerToRead(Optional<StoreLock> lock, Exception failure) {
    if (!lock.isPresent()) {
      giveUp(failure);
    } else if (Ask.choose(parent, application + "." + database + " is being edited by "
        + lock.get().user() + " since " + time(lock.get().since()) + "\n(process "
        + lock.get().process() + " on " + lock.get().host()
        + "). You can read what was saved last.", "Open to Read", "Cancel") == 0) {
      Editor.inBackground(() -> {
        outline = store.browse(application, database);
        return workspace();
      }, then, this::giveUp);
    } else {
      then.accept(null);
    }
  }
}
