package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Store;
import com.olvane.kep.olvane.standin.StoredDatabase;
import java.nio.charset.StandardCharsets;
import java.security.MessageDigest;
import java.security.NoSuchAlgorithmException;

/**
 * Keeps the unsaved work on one outline aside, in one local object of the store, so that it is
 * there after the program or the machine has died. Used on the work thread.
 */
final class UnsavedWork {
  private static final int NAME_BYTES = 14;

  private final Store store;
  private final String object;
  private boolean kept;

  UnsavedWork(Store store, String application, String database) {
    this.store = store;
    this.object = objectOf(application, database);
  }

  /** The object's name: of its 30 bytes an application and a database might take more. */
  private static String objectOf(String application, String database) {
    try {
      byte[] hash = MessageDigest.getInstance("SHA-256")
          .digest((application + "/" + database).getBytes(StandardCharsets.UTF_8));
      StringBuilder name = new StringBuilder("u");
      for (int i = 0; i < NAME_BYTES; i++) {
        name.append(String.format("%02x", hash[i]));
      }
      return name.toString();
    } catch (NoSuchAlgorithmException e) {
      throw new IllegalStateException("Every Java has SHA-256", e);
    }
  }

  /** Work that was kept and is still there; null when there is none. */
  StoredDatabase found() {
    for (StoredDatabase one : store.localObjects().list()) {
      if (one.database().equals(object)) {
        kept = true;
        return one;
      }
    }
    return null;
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
