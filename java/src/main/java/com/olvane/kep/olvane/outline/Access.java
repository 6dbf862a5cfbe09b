package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.ContextHandle;
import com.olvane.kep.olvane.api.InstanceHandle;
import com.olvane.kep.olvane.api.OutlineHandle;
import com.olvane.kep.olvane.api.jni.OutlineBulk;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import java.nio.ByteBuffer;
import java.util.ConcurrentModificationException;
import java.util.concurrent.ArrayBlockingQueue;
import java.util.concurrent.locks.ReentrantLock;
import java.util.function.BooleanSupplier;

/**
 * An open outline as its parts share it: its handle, one call at a time, and the buffers of the
 * fast lane. It counts the edits, so that what reads in steps notices one in between.
 */
final class Access {
  /** A native method with what each of them takes. */
  interface Call {
    int on(InstanceHandle instance, OutlineHandle outline);

    /** What a status is about, in words; empty where that is the member. */
    default String field() {
      return "";
    }
  }

  private static final int BUFFER_BYTES = 64 * 1024;
  private static final int KEPT_BUFFERS = 4;

  final Login login;
  final OutlineHandle handle = new OutlineHandle();
  /** Of the login, or a local one. */
  private final ContextHandle context;
  final String application;
  final String database;
  final boolean editing;
  private final ReentrantLock lock = new ReentrantLock();
  private final ArrayBlockingQueue<ByteBuffer> buffers = new ArrayBlockingQueue<>(KEPT_BUFFERS);
  private volatile int bufferBytes = BUFFER_BYTES;
  private volatile long edits;
  private long savedEdits;

  private Access(
      Login login, ContextHandle context, String application, String database, boolean editing) {
    this.login = login;
    this.context = context;
    this.application = application;
    this.database = database;
    this.editing = editing;
  }

  /** Opens the outline of a database for editing, in the context that has it. */
  static Access edit(Login login, ContextHandle context, String application, String database) {
    Access access = new Access(login, context, application, database, true);
    login.beginEditing(access.name());
    try {
      return access.opened("editing",
          OutlineJni.openOutlineEdit(context, application, database, database, access.handle));
    } catch (RuntimeException e) {
      login.forget(access);
      throw e;
    }
  }

  /** Opens the outline of a database, or of the active one of a login of the vendor's. */
  static Access browse(Login login, String application, String database) {
    Access access = new Access(login, login.context, application, database, false);
    login.requireOpen();
    login.active.lock();
    try {
      if (login.session != null) {
        login.session.setActive(application, database);
      }
      return access.opened("browsing", OutlineJni.openOutlineQuery(login.context, access.handle));
    } finally {
      login.active.unlock();
    }
  }

  private Access opened(String purpose, int status) {
    int refused = status == Status.OK && !handle.isSet() ? Status.REFUSED : status;
    check("open " + this + " for " + purpose, "", "", refused);
    return login.keep(this);
  }

  String name() {
    return application + "." + database;
  }

  /** As it is called within a sentence. */
  @Override
  public String toString() {
    return "the outline of " + name();
  }

  private void requireEditing() {
    if (!editing) {
      throw new IllegalStateException(
          "The outline of " + name() + " is open for browsing; open it for editing to change it");
    }
  }

  /** Throws unless a status is 0; {@code action} and the member's name say what failed. */
  static void check(String action, String member, String field, int status) {
    if (status != Status.OK) {
      throw new OutlineException(action, status, member, field);
    }
  }

  /** Makes a call after the one that runs, and gives what it answers. */
  int answer(Call call) {
    lock.lock();
    try {
      if (!handle.isSet()) {
        throw new IllegalStateException("The outline of " + name() + " is closed");
      }
      return call.on(login.instance, handle);
    } finally {
      lock.unlock();
    }
  }

  /** Makes a call that changes the outline, and gives what it answers. */
  int answerToEdit(Call call) {
    requireEditing();
    return answer((i, o) -> {
      edits++;
      return call.on(i, o);
    });
  }

  /** Makes a call that changes nothing; {@code member} is the name of the one it is about. */
  void read(String action, String member, Call call) {
    int status = answer(call);
    check(action, member, call.field(), status);
  }

  /** Makes a call that changes nothing and is about no member. */
  void read(String action, Call call) {
    read(action, "", call);
  }

  /** Makes a call that changes the outline. */
  void edit(String action, String member, Call call) {
    int status = answerToEdit(call);
    check(action, member, call.field(), status);
  }

  /** Makes a call that changes the outline and is about no member. */
  void edit(String action, Call call) {
    edit(action, "", call);
  }

  /** Makes a call that uses the active database of the login. */
  void inContext(String action, Call call) {
    login.active.lock();
    try {
      read(action, call);
    } finally {
      login.active.unlock();
    }
  }

  /** Gives the number of edits begun, if it is as before (-1: whatever it is); within a call. */
  long unchanged(long since) {
    if (since >= 0 && edits != since) {
      throw new ConcurrentModificationException(
          "The outline of " + name() + " was edited while it was being read");
    }
    return edits;
  }

  boolean hasUnsavedEdits() {
    return answer((i, o) -> edits == savedEdits ? 0 : 1) != 0;
  }

  /** Writes the outline to its database. */
  void save() {
    requireEditing();
    read("save " + this, (i, o) -> {
      int status = OutlineJni.write(context, o, application, database);
      savedEdits = status == Status.OK ? edits : savedEdits;
      return status;
    });
  }

  /** Takes the lock again that is gone, and gives it back unless {@code wanted} is true then. */
  boolean lockAgain(BooleanSupplier wanted) {
    requireEditing();
    OutlineHandle stored = new OutlineHandle();
    check("lock " + this, "", "",
        OutlineJni.openOutlineEdit(context, application, database, database, stored));
    boolean stays = false;
    try {
      stays = wanted.getAsBoolean();
    } finally {
      // Only closing what was opened for editing unlocks it.
      check("close what is stored of " + name(), "", "",
          stays ? OutlineJni.closeOutlineQuery(stored)
          : OutlineJni.closeOutlineEdit(context, stored, application, database));
    }
    return stays;
  }

  /** Closes the outline after the call that runs; closing again does nothing. */
  void close() {
    lock.lock();
    try {
      if (!handle.isSet()) {
        return;
      }
      int status =
          editing
              ? OutlineJni.closeOutlineEdit(context, handle, application, database)
              : OutlineJni.closeOutlineQuery(handle);
      // Whatever it answered, nothing can be done with the handle any more.
      handle.setValue(0);
      buffers.clear();
      login.forget(this);
      check("close " + this, "", "", status);
    } finally {
      lock.unlock();
    }
  }

  /** Changes how large buffers are made, for tests. */
  void useBuffersOf(int bytes) {
    buffers.clear();
    bufferBytes = bytes;
  }

  /** Lends a buffer of at least so many bytes. */
  ByteBuffer borrow(int bytes) {
    ByteBuffer buffer = bytes <= bufferBytes ? buffers.poll() : null;
    return buffer != null
        ? buffer
        : ByteBuffer.allocateDirect(Math.max(bytes, bufferBytes)).order(OutlineBulk.ORDER);
  }

  /** Takes a buffer back; one that has grown is let go. */
  void giveBack(ByteBuffer buffer) {
    buffer.clear();
    if (buffer.capacity() == bufferBytes) {
      buffers.offer(buffer);
    }
  }
}
