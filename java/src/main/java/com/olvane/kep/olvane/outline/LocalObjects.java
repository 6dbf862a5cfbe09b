package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.standin.StatusException;
import com.olvane.kep.olvane.standin.StoredDatabase;
import java.util.ArrayList;
import java.util.List;

/**
 * Outlines that are kept aside in the store's scratch area, such as unsaved work. They are not
 * seen among the databases. Each has a name of 1 to 30 bytes.
 */
public final class LocalObjects {
  /** The application of the scratch area that has them. */
  private static final String APPLICATION = "Aside";

  private final Store store;

  LocalObjects(Store store) {
    this.store = store;
  }

  /**
   * Writes an outline as it is now to a local object, in place of what is there. The outline
   * counts as unsaved as before.
   *
   * @param outline the outline
   * @param name the name of the object
   * @throws OutlineException if it cannot be written
   */
  public void write(Outline outline, String name) {
    outline.access.read("keep the outline aside as " + name, outline.toString(),
        (i, o) -> OutlineJni.write(store.localContext(), o, APPLICATION, name));
  }

  /**
   * Writes an outline that was kept aside to the database that it came from, in place of what is
   * stored there.
   *
   * @param kept the outline, as {@link #open} gives it
   * @param application the name of the application
   * @param database the name of the database, which this store has open for editing
   * @throws OutlineException if it cannot be written
   */
  public void writeBack(Outline kept, String application, String database) {
    kept.access.read("save the outline to " + application + "." + database, "",
        (i, o) -> OutlineJni.write(store.login().context, o, application, database));
  }

  /** {@return the local objects, sorted by name; {@code database()} tells the name} */
  public List<StoredDatabase> list() {
    List<StoredDatabase> found = new ArrayList<>();
    for (StoredDatabase one : store.session().databases(store.localContext())) {
      if (one.application().equals(APPLICATION)) {
        found.add(one);
      }
    }
    return found;
  }

  /**
   * Opens a local object for editing; saving writes it back there.
   *
   * @param name the name of the object
   * @return the outline, empty where there is no such object
   * @throws OutlineException if it cannot be opened
   */
  public Outline open(String name) {
    return store.keep(
        Access.edit(store.login(), store.localContext(), APPLICATION, name, name));
  }

  /**
   * Removes a local object.
   *
   * @param name the name of the object
   * @throws StatusException if there is none, or somebody else has it open
   * @throws IllegalStateException if this store has it open
   */
  public void remove(String name) {
    String object = APPLICATION + "." + name;
    store.login().beginEditing(object);
    try {
      store.session().deleteDatabase(store.localContext(), APPLICATION, name);
    } finally {
      store.login().endEditing(object);
    }
  }
}
