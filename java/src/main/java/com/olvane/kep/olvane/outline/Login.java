package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.ContextHandle;
import com.olvane.kep.olvane.api.InstanceHandle;
import com.olvane.kep.olvane.standin.StandinSession;
import java.util.ArrayList;
import java.util.HashSet;
import java.util.List;
import java.util.Set;
import java.util.concurrent.locks.ReentrantLock;

/** One login: its handles, its open outlines, and what these must not do at the same time. */
final class Login {
  final InstanceHandle instance;
  final ContextHandle context;
  /** Null for a login of the vendor's. */
  final StandinSession session;
  /** Held by what makes a database active and relies on it, or starts a process. */
  final ReentrantLock active = new ReentrantLock();
  private final Set<String> edited = new HashSet<>();
  private final List<Access> outlines = new ArrayList<>();
  private ContextHandle localContext;
  private boolean closed;

  Login(InstanceHandle instance, ContextHandle context, StandinSession session) {
    this.instance = instance;
    this.context = context;
    this.session = session;
  }

  synchronized void requireOpen() {
    if (closed) {
      throw new IllegalStateException("The store is closed");
    }
  }

  /** The context of the outlines that are kept aside; made when it is first needed. */
  synchronized ContextHandle localContext() {
    requireOpen();
    if (localContext == null) {
      localContext = session.newLocalContext();
    }
    return localContext;
  }

  /** Notes that an outline is to be edited; this login could lock it a second time. */
  synchronized void beginEditing(String name) {
    requireOpen();
    if (!edited.add(name)) {
      throw new IllegalStateException(
          "The outline of " + name + " is open for editing already; close it first");
    }
  }

  synchronized void endEditing(String name) {
    edited.remove(name);
  }

  /** Notes an outline that was opened; it closes with this login. */
  Access keep(Access outline) {
    synchronized (this) {
      if (!closed) {
        outlines.add(outline);
        return outline;
      }
    }
    outline.close();
    throw new IllegalStateException("The store was closed");
  }

  synchronized void forget(Access outline) {
    outlines.remove(outline);
    if (outline.editing) {
      edited.remove(outline.name());
    }
  }

  /** Closes the outlines and logs out. */
  void close() {
    List<Access> open;
    synchronized (this) {
      closed = true;
      open = new ArrayList<>(outlines);
    }
    OutlineException failure = null;
    for (Access outline : open) {
      try {
        outline.close();
      } catch (OutlineException e) {
        failure = e;
      }
    }
    session.close();
    if (failure != null) {
      throw failure;
    }
  }
}
