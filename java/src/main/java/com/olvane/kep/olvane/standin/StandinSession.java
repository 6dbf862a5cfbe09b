package com.olvane.kep.olvane.standin;

import com.olvane.kep.olvane.api.ContextHandle;
import com.olvane.kep.olvane.api.InstanceHandle;
import com.olvane.kep.olvane.api.jni.NativeLibrary;
import java.nio.charset.StandardCharsets;
import java.nio.file.Path;
import java.time.Instant;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;

/**
 * A login to the embedded outline engine, which keeps its databases in a folder or on a PostgreSQL
 * server. It supplies the
 * instance and context handles that the native methods of the outline editor take.
 *
 * <p>Failures are thrown as {@link StatusException}. A session may be used by several threads;
 * several sessions, also of several processes, may use one store at once.
 */
public final class StandinSession implements AutoCloseable {
  private final InstanceHandle instance;
  private final ContextHandle context;

  private StandinSession(InstanceHandle instance, ContextHandle context) {
    this.instance = instance;
    this.context = context;
  }

  /**
   * Opens a store and logs in. A folder is created when it does not exist.
   *
   * @param store the folder of the store, or the address of a database on a PostgreSQL server, as
   *     {@code postgresql://planning@db.example.com/planning}; the command {@code outline store
   *     init} makes it a store
   * @param user the name to log in with; locks are held in this name
   * @return the session, to be closed by the caller
   * @throws StatusException if the folder is not a store, cannot be used or the login is refused
   * @throws UnsatisfiedLinkError if the library cannot be loaded, as {@link NativeLibrary#load} says
   * @throws IllegalStateException if the library in use talks to a database server instead
   */
  public static StandinSession open(String store, String user) {
    // The engine's library comes with the editor's, which depends on it. Loaded here and not with
    // the class, so that a failure is told in full each time.
    NativeLibrary.load();
    int[] instance = new int[1];
    try {
      check("use the store " + shown(store), initialize(store, instance));
    } catch (UnsatisfiedLinkError e) {
      throw new IllegalStateException(
          NativeLibrary.location()
              + " is not linked with the embedded engine. Use the library of a build without"
              + " KEPOTL_API_LIBRARIES, or log in through the client API of the server",
          e);
    }
    int[] context = new int[1];
    int status = login(instance[0], user, context);
    if (status != 0) {
      terminate(instance[0]);
      check("log in as " + user, status);
    }
    return new StandinSession(new InstanceHandle(instance[0]), new ContextHandle(context[0]));
  }

  /**
   * Opens a store and logs in. The folder is created when it does not exist.
   *
   * @param store the folder of the store
   * @param user the name to log in with; locks are held in this name
   * @return the session, to be closed by the caller
   * @throws StatusException if the folder is not a store, cannot be used or the login is refused
   * @throws UnsatisfiedLinkError if the library cannot be loaded, as {@link NativeLibrary#load} says
   * @throws IllegalStateException if the library in use talks to a database server instead
   */
  public static StandinSession open(Path store, String user) {
    return open(store.toAbsolutePath().toString(), user);
  }

  /** {@return the API instance} */
  public InstanceHandle instance() {
    return instance;
  }

  /** {@return the login context} */
  public ContextHandle context() {
    return context;
  }

  /**
   * Creates a database, and its application where there is none of that name. Its outline comes to
   * be when it is first opened for editing, and is stored when it is first written.
   *
   * @param application the name of the application, at most 30 bytes
   * @param database the name of the database, at most 30 bytes
   * @throws StatusException if the database exists or a name is not allowed
   */
  public void createDatabase(String application, String database) {
    check(
        "create the database " + application + "." + database,
        createDatabase(context.getValue(), application, database));
  }

  /**
   * Makes a database the active one, whose outline {@code openOutlineQuery} opens.
   *
   * @param application the name of the application
   * @param database the name of the database
   * @throws StatusException if there is no such database
   */
  public void setActive(String application, String database) {
    check(
        "use the database " + application + "." + database,
        setActive(context.getValue(), application, database));
  }

  /**
   * Tells whether a database exists, and makes it the active one if so.
   *
   * @param application the name of the application
   * @param database the name of the database
   * @return true if it exists
   */
  public boolean activateIfExists(String application, String database) {
    return setActive(context.getValue(), application, database) == 0;
  }

  /**
   * Marks a database as holding data or not. The engine keeps outlines only; this is what
   * {@code getDataLoaded} then tells.
   *
   * @param application the name of the application
   * @param database the name of the database
   * @param loaded true if it is to hold data
   * @throws StatusException if there is no such database
   */
  public void setDataLoaded(String application, String database, boolean loaded) {
    check(
        "mark the database " + application + "." + database,
        setDataLoaded(context.getValue(), application, database, loaded));
  }

  /**
   * Tells whether a database has been restructured since it was created.
   *
   * @param application the name of the application
   * @param database the name of the database
   * @return true if so
   */
  public boolean isRestructured(String application, String database) {
    return restructured(context.getValue(), application, database);
  }

  /**
   * Lists the databases of the store.
   *
   * @return the databases, sorted by name
   * @throws StatusException if reading the store fails
   */
  public List<StoredDatabase> databases() {
    return databases(context);
  }

  /**
   * Lists the databases of a context: of the store, or of the local scratch area for one that
   * {@link #newLocalContext} gave.
   *
   * @param context the context
   * @return the databases, sorted by name
   * @throws StatusException if reading the store fails
   */
  public List<StoredDatabase> databases(ContextHandle context) {
    int[] status = new int[1];
    byte[][] fields = databases(instance.getValue(), context.getValue(), status);
    check("list the databases", status[0]);
    List<StoredDatabase> databases = new ArrayList<>();
    for (int i = 0; i < fields.length; i += 5) {
      databases.add(
          new StoredDatabase(
              text(fields[i]),
              text(fields[i + 1]),
              Long.parseLong(text(fields[i + 2])),
              Long.parseLong(text(fields[i + 3])),
              Instant.ofEpochSecond(Long.parseLong(text(fields[i + 4])))));
    }
    return Collections.unmodifiableList(databases);
  }

  /**
   * Removes a database with its outline, and its application when that was its last one.
   *
   * @param application the name of the application
   * @param database the name of the database
   * @throws StatusException if there is no such database, somebody else edits its outline, or it
   *     is being restructured
   */
  public void deleteDatabase(String application, String database) {
    deleteDatabase(context, application, database);
  }

  /**
   * Removes a database of a context, as {@link #databases(ContextHandle)} lists it.
   *
   * @param context the context
   * @param application the name of the application
   * @param database the name of the database
   * @throws StatusException as {@link #deleteDatabase(String, String)} does
   */
  public void deleteDatabase(ContextHandle context, String application, String database) {
    check(
        "delete the database " + application + "." + database,
        deleteDatabase(context.getValue(), application, database));
  }

  /**
   * Makes a context for outlines of the local scratch area, which are not seen among the
   * databases. It ends with this session.
   *
   * @return the context
   */
  public ContextHandle newLocalContext() {
    int[] local = new int[1];
    check("use the local scratch area", createLocalContext(instance.getValue(), local));
    return new ContextHandle(local[0]);
  }

  /**
   * Lists who holds locks and who restructures in the store, this session included. A holder whose
   * process has died on this machine is not listed.
   *
   * @return the holders, sorted by the names of the objects
   * @throws StatusException if the store may only be looked at, or reading it fails
   */
  public List<StoreLock> locks() {
    int[] status = new int[1];
    byte[][] fields = locks(instance.getValue(), status);
    check("list the locks", status[0]);
    List<StoreLock> locks = new ArrayList<>();
    for (int i = 0; i < fields.length; i += 5) {
      locks.add(
          new StoreLock(
              text(fields[i]),
              text(fields[i + 1]),
              text(fields[i + 2]),
              Long.parseLong(text(fields[i + 3])),
              Instant.ofEpochSecond(Long.parseLong(text(fields[i + 4])))));
    }
    return Collections.unmodifiableList(locks);
  }

  /**
   * Takes a lock or a restructure away from whoever has it, as from a container that is gone. A
   * holder that lives on can't write the object any more.
   *
   * @param object the name as {@link StoreLock#object} gives it
   * @throws StatusException if nobody has it, or the store may only be looked at
   */
  public void breakLock(String object) {
    check(
        "break the lock of " + object,
        breakLock(instance.getValue(), object.getBytes(StandardCharsets.UTF_8)));
  }

  /** An address as it may be shown: without its password. */
  private static String shown(String store) {
    return store
        .replaceFirst("^(\\w+://[^:/@?]*):[^/@?]*@", "$1:***@")
        .replaceFirst("^(\\w+://.*[?&]password=)[^&]*", "$1***");
  }

  private static String text(byte[] utf8) {
    return new String(utf8, StandardCharsets.UTF_8);
  }

  /**
   * Says what a status means.
   *
   * @param status any status of the API or of the library
   * @return one sentence
   */
  public static String message(int status) {
    NativeLibrary.load();
    return statusText(status);
  }

  /**
   * Throws unless a status is 0.
   *
   * @param action what was attempted, such as "write the outline"
   * @param status what it returned
   * @throws StatusException if the status is not 0
   */
  public static void check(String action, int status) {
    if (status != 0) {
      throw new StatusException(action, status, message(status));
    }
  }

  /** {@return the engine's count of the memory that this process was handed} */
  public static Ledger memory() {
    NativeLibrary.load();
    long[] counts = ledger();
    return new Ledger(counts[0], counts[1], counts[2], counts[3]);
  }

  /** Logs out. Outlines that are still open and their locks are given up; closing again is fine. */
  @Override
  public synchronized void close() {
    if (instance.isSet()) {
      logout(context.getValue());
      terminate(instance.getValue());
      context.setValue(0);
      instance.setValue(0);
    }
  }

  static native int initialize(String storeFolder, int[] instanceOut);

  static native int terminate(int instance);

  static native int login(int instance, String user, int[] contextOut);

  static native int logout(int context);

  static native int createDatabase(int context, String application, String database);

  static native int setActive(int context, String application, String database);

  static native String statusText(int status);

  static native int setDataLoaded(
      int context, String application, String database, boolean loaded);

  static native boolean restructured(int context, String application, String database);

  static native byte[][] databases(int instance, int context, int[] statusOut);

  static native int deleteDatabase(int context, String application, String database);

  static native int createLocalContext(int instance, int[] contextOut);

  static native byte[][] locks(int instance, int[] statusOut);

  static native int breakLock(int instance, byte[] object);

  static native long[] ledger();
}
