package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.ContextHandle;
import com.olvane.kep.olvane.api.InstanceHandle;
import com.olvane.kep.olvane.standin.StandinSession;
import java.util.HashSet;
import java.util.Set;
import java.util.concurrent.locks.ReentrantLock;

/** One login: its handles, and what its outlines must not do at the same time. */
final class Login {
  final InstanceHandle instance;
  final ContextHandle context;
  /** Null for a login of the vendor's. */
  final StandinSession session;
  /** Held by what makes a database active and relies on it, or starts a process. */
  final ReentrantLock active = new ReentrantLock();
  private final Set<String> edited = new HashSet<>();

  Login(InstanceHandle instance, ContextHandle context, StandinSession session) {
    this.instance = instance;
    this.context = context;
    this.session = session;
  }

  /** Notes that an outline is to be edited; this login could lock it a second time. */
  synchronized void beginEditing(String name) {
    if (!edited.add(name)) {
      throw new IllegalStateException(
          "The outline of " + name + " is open for editing already; close it first");
    }
  }

  synchronized void endEditing(String name) {
    edited.remove(name);
  }
}
