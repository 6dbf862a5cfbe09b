package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.standin.StatusException;
import com.olvane.kep.olvane.standin.StoredDatabase;
import java.util.List;
import java.util.stream.Collectors;

/**
 * Outlines that are kept aside in the store's scratch area, such as unsaved work. They are not
 * seen among the databases. Each has a name of 1 to 30 bytes.
 */
public final class LocalObjects {
  /** The application of the scratch area that has them. */
  private static final String APPLICATION = "Aside";

  private final Login login;

  LocalObjects(Login login) {
    this.login = login;
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
    outline.access.read("keep " + outline.access + " aside as " + name,
        (i, o) -> OutlineJni.write(login.localContext(), o, APPLICATION, name));
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
    kept.access.read("write " + kept.access + " back to " + application + "." + database,
        (i, o) -> OutlineJni.write(login.context, o, application, database));
  }

  /** {@return the local objects, sorted by name; {@code database()} tells the name} */
  public List<StoredDatabase> list() {
    return login.session.databases(login.localContext()).stream()
        .filter(one -> one.application().equals(APPLICATION)).collect(Collectors.toList());
  }

  /**
   * Opens a local object for editing; saving writes it back there.
   *
   * @param name the name of the object
   * @return the outline, empty where there is no such object
   * @throws OutlineException if it cannot be opened
   */
  public Outline open(String name) {
    return new Outline(Access.edit(login, login.localContext(), APPLICATION, name));
  }

  /**
   * Removes a local object; where there is none, nothing is done. An outline that this store has
   * opened from it goes on without it.
   *
   * @param name the name of the object
   * @throws StatusException if somebody else has it open
   */
  public void remove(String name) {
    login.session.deleteDatabase(login.localContext(), APPLICATION, name);
  }
}
