package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Store;
import com.olvane.kep.olvane.standin.StoredDatabase;
import java.nio.charset.StandardCharsets;
import java.util.Optional;
import java.util.UUID;

/**
 * Keeps the unsaved work on one outline aside, in one local object of the store, so that it is
 * there after the program or the machine has died. Used on the work thread.
 */
final class UnsavedWork {
  private final Store store;
  private final String object;
  private boolean kept;

  UnsavedWork(Store store, String application, String database) {
    this.store = store;
    // Of an object's 30 bytes an application and a database might take more.
    byte[] names = (application + "/" + database).getBytes(StandardCharsets.UTF_8);
    this.object = "u" + UUID.nameUUIDFromBytes(names).toString().replace("-", "").substring(4);
  }

  /** Work that was kept and is still there. */
  Optional<StoredDatabase> found() {
    Optional<StoredDatabase> found = store.localObjects().list().stream()
        .filter(one -> one.database().equals(object)).findFirst();
    kept = found.isPresent();
    return found;
  }

  /** Opens the work that was found. */
  Outline open() {
    return store.localObjects().open(object);
  }

  /** Keeps an outline as it is now. */
  void keep(Outline outline) {
    store.localObjects().write(outline, object);
    kept = true;
  }

  /** Removes what was kept, if anything was. */
  void remove() {
    if (kept) {
      store.localObjects().remove(object);
      kept = false;
    }
  }
}
