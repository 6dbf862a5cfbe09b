package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.standin.StandinSession;
import com.olvane.kep.olvane.standin.StatusException;
import com.olvane.kep.olvane.standin.StoreLock;
import com.olvane.kep.olvane.standin.StoredDatabase;
import java.util.List;

/**
 * A login to the embedded outline engine, which keeps its databases in a folder or, for several
 * machines, on a PostgreSQL server. Where the library in use talks to a server of the vendor's,
 * there is none: {@link #open} says so, and {@link Outline#open} takes the handles of the vendor's
 * login.
 *
 * <p>Closing a store closes its outlines.
 */
public final class Store implements AutoCloseable {
  private final Login login;

  private Store(StandinSession session) {
    login = new Login(session.instance(), session.context(), session);
  }

  /**
   * Opens a store and logs in. A folder is created when it does not exist.
   *
   * @param store the folder of the store, or the address of a database on a PostgreSQL server, as
   *     {@code postgresql://planning@db.example.com/planning}; the command {@code outline store
   *     init} makes it a store
   * @param user the name to log in with; locks are held in this name
   * @return the store
   * @throws StatusException if the folder is not a store, cannot be used or the login is refused
   * @throws IllegalStateException if the library in use talks to a database server instead
   */
  public static Store open(String store, String user) {
    return new Store(StandinSession.open(store, user));
  }

  /** {@return the session behind this store, for the native methods; it closes with the store} */
  public StandinSession session() {
    return login.session;
  }

  /** The session, unless it is closed. */
  private StandinSession open() {
    login.requireOpen();
    return login.session;
  }

  /**
   * Creates a database, and its application where there is none of that name.
   *
   * @param application the name of the application, at most 30 bytes
   * @param database the name of the database, at most 30 bytes
   * @throws StatusException if the database exists or a name is not allowed
   */
  public void create(String application, String database) {
    open().createDatabase(application, database);
  }

  /** {@return the databases, sorted by name} */
  public List<StoredDatabase> databases() {
    return open().databases();
  }

  /**
   * Deletes a database with its outline.
   *
   * @param application the name of the application
   * @param database the name of the database
   * @throws StatusException if there is none, somebody edits its outline, or it is restructured
   */
  public void delete(String application, String database) {
    String name = application + "." + database;
    login.beginEditing(name);
    try {
      login.session.deleteDatabase(application, database);
    } finally {
      login.endEditing(name);
    }
  }

  /** {@return who holds locks and who restructures, this login included} */
  public List<StoreLock> locks() {
    return open().locks();
  }

  /**
   * Takes a lock away from whoever has it, as from a machine that is gone.
   *
   * @param object the name as {@link StoreLock#object} gives it
   * @throws StatusException if nobody has it
   */
  public void breakLock(String object) {
    open().breakLock(object);
  }

  /** {@return the outlines that are kept aside} */
  public LocalObjects localObjects() {
    login.requireOpen();
    return new LocalObjects(login);
  }

  /**
   * Opens the outline of a database for editing. It stays locked until it is closed.
   *
   * @param application the name of the application
   * @param database the name of the database
   * @return the outline, empty for a database that never had one
   * @throws OutlineException if it cannot be opened, for one when somebody else edits it
   * @throws IllegalStateException if this store has it open for editing already
   */
  public Outline edit(String application, String database) {
    return new Outline(Access.edit(login, login.context, application, database));
  }

  /**
   * Opens the outline of a database for browsing, as it was stored last.
   *
   * @param application the name of the application
   * @param database the name of the database
   * @return the outline, which cannot be changed
   * @throws OutlineException if it cannot be opened
   * @throws StatusException if there is no such database
   */
  public Outline browse(String application, String database) {
    return new Outline(Access.browse(login, application, database));
  }

  /** Closes the outlines and logs out; closing again does nothing. */
  @Override
  public void close() {
    login.close();
  }
}
