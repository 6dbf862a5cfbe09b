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
  final InstanceHandle instance;
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
    this.instance = login.instance;
    this.application = application;
    this.database = database;
    this.editing = editing;
  }

  /** Opens the outline of a database for editing, in the context that has it. */
  static Access edit(Login login, ContextHandle context, String application, String database) {
    Access access = new Access(login, context, application, database, true);
    login.beginEditing(access.name());
    try {
      return access.opened("open the outline for editing",
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
      return access.opened("open the outline for browsing",
          OutlineJni.openOutlineQuery(login.context, access.handle));
    } finally {
      login.active.unlock();
    }
  }

  private Access opened(String action, int status) {
    check(action, name(), "", status == Status.OK && !handle.isSet() ? Status.REFUSED : status);
    return login.keep(this);
  }

  String name() {
    return application + "." + database;
  }

  /** Waits for the call that runs; {@link #leave} must follow. */
  void enter() {
    lock.lock();
    if (!handle.isSet()) {
      lock.unlock();
      throw new IllegalStateException("The outline of " + name() + " is closed");
    }
  }

  void leave() {
    lock.unlock();
  }

  private void requireEditing() {
    if (!editing) {
      throw new IllegalStateException(
          "The outline of " + name() + " is open for browsing; open it for editing to change it");
    }
  }

  /** Throws unless a status is 0. */
  static void check(String action, String member, String field, int status) {
    if (status != Status.OK) {
      throw new OutlineException(action, status, member, field);
    }
  }

  /** Makes a call and gives what it answers. */
  int answer(Call call) {
    enter();
    try {
      return call.on(instance, handle);
    } finally {
      leave();
    }
  }

  /** Makes a call that changes the outline, and gives what it answers. */
  int answerToEdit(Call call) {
    requireEditing();
    enter();
    try {
      edits++;
      return call.on(instance, handle);
    } finally {
      leave();
    }
  }

  /** Makes a call that changes nothing. */
  void read(String action, String member, Call call) {
    int status = answer(call);
    check(action, member, call.field(), status);
  }

  /** Makes a call that changes the outline. */
  void edit(String action, String member, Call call) {
    int status = answerToEdit(call);
    check(action, member, call.field(), status);
  }

  /** Makes a call that uses the active database of the login. */
  void inContext(String action, Call call) {
    login.active.lock();
    try {
      read(action, name(), call);
    } finally {
      login.active.unlock();
    }
  }

  /** {@return the number of edits begun so far} */
  long edits() {
    return edits;
  }

  /** Call it while entered. */
  void requireUnchanged(long since) {
    if (edits != since) {
      throw new ConcurrentModificationException(
          "The outline of " + name() + " was edited while it was being read");
    }
  }

  boolean hasUnsavedEdits() {
    enter();
    try {
      return edits != savedEdits;
    } finally {
      leave();
    }
  }

  /** Writes the outline to its database. */
  void save() {
    requireEditing();
    read("save the outline", name(), (i, o) -> {
      int status = OutlineJni.write(context, o, application, database);
      savedEdits = status == Status.OK ? edits : savedEdits;
      return status;
    });
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
      check("close the outline", name(), "", status);
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
