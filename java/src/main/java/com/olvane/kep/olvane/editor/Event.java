package com.olvane.kep.olvane.editor;

import java.util.List;
import java.util.concurrent.CopyOnWriteArrayList;
import java.util.function.Consumer;

/**
 * Something that happens again and again, and those who hear of it.
 *
 * @param <T> what they are told
 */
final class Event<T> {
  private final List<Consumer<T>> listeners = new CopyOnWriteArrayList<>();

  /** Tells a listener from now on. */
  void hear(Consumer<T> listener) {
    listeners.add(listener);
  }

  /** Tells a listener no more. */
  void forget(Consumer<T> listener) {
    listeners.remove(listener);
  }

  /** Tells all listeners, in the order in which they came. */
  void tell(T what) {
    listeners.forEach(listener -> listener.accept(what));
  }
}
