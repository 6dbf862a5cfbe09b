package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.ContextHandle;
import com.olvane.kep.olvane.api.InstanceHandle;
import com.olvane.kep.olvane.api.OutlineHandle;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import java.nio.ByteBuffer;
import java.util.ArrayDeque;
import java.util.ConcurrentModificationException;
import java.util.concurrent.locks.ReentrantLock;

/**
 * An open outline as its parts share it: its handle, one call at a time, and the buffers of the
 * fast lane. It counts the edits, so that what reads in steps notices one in between.
 */
final class Access {
  /** A native method with what each of them takes. */
  interface Call {
    int on(InstanceHandle instance, OutlineHandle outline);
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
  private final ArrayDeque<ByteBuffer> buffers = new ArrayDeque<>();
  private int bufferBytes = BUFFER_BYTES;
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

  /** Opens a stored object for editing, in the context that has it. */
  static Access edit(
      Login login, ContextHandle context, String application, String database, String object) {
    Access access = new Access(login, context, application, database, true);
    OutlineHandle handle = access.handle;
    login.beginEditing(access.name());
    try {
      check("open the outline for editing", access.name(), "",
          OutlineJni.openOutlineEdit(context, application, database, object, handle));
      if (!handle.isSet()) {
        throw new OutlineException(
            "open the outline for editing", Status.REFUSED, access.name(), "");
      }
      return access;
    } finally {
      if (!handle.isSet()) {
        login.endEditing(access.name());
      }
    }
  }

  /** Opens the outline of a database, or of the active one of a login of the vendor's. */
  static Access browse(Login login, String application, String database) {
    Access access = new Access(login, login.context, application, database, false);
    login.active.lock();
    try {
      if (login.session != null) {
        login.session.setActive(application, database);
      }
      check("open the outline for browsing", access.name(), "",
          OutlineJni.openOutlineQuery(login.context, access.handle));
      return access;
    } finally {
      login.active.unlock();
    }
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

  /** Enters for an edit. */
  void enterToEdit() {
    requireEditing();
    enter();
    edits++;
  }

  /** Throws unless a status is 0. */
  static void check(String action, String member, String field, int status) {
    if (status != Status.OK) {
      throw new OutlineException(action, status, member, field);
    }
  }

  /** Makes a call that changes nothing. */
  void read(String action, String member, Call call) {
    enter();
    try {
      check(action, member, "", call.on(instance, handle));
    } finally {
      leave();
    }
  }

  /** Makes a call that changes the outline. */
  void edit(String action, String member, Call call) {
    enterToEdit();
    try {
      check(action, member, "", call.on(instance, handle));
    } finally {
      leave();
    }
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
    enter();
    try {
      check("save the outline", name(), "",
          OutlineJni.write(context, handle, application, database));
      savedEdits = edits;
    } finally {
      leave();
    }
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
      synchronized (buffers) {
        buffers.clear();
      }
      check("close the outline", name(), "", status);
    } finally {
      if (editing) {
        login.endEditing(name());
      }
      lock.unlock();
    }
  }

  /** Changes how large buffers are made, for tests. */
  void useBuffersOf(int bytes) {
    synchronized (buffers) {
      buffers.clear();
      bufferBytes = bytes;
    }
  }

  /** Lends a buffer of at least so many bytes. */
  ByteBuffer borrow(int bytes) {
    ByteBuffer buffer;
    synchronized (buffers) {
      buffer = bytes <= bufferBytes ? buffers.poll() : null;
    }
    return buffer != null
        ? buffer
        : ByteBuffer.allocateDirect(Math.max(bytes, bufferBytes)).order(BulkCall.ORDER);
  }

  /** Takes a buffer back; one that has grown is let go. */
  void giveBack(ByteBuffer buffer) {
    synchronized (buffers) {
      if (buffer.capacity() == bufferBytes && buffers.size() < KEPT_BUFFERS) {
        buffers.push(buffer);
      }
    }
  }
}
