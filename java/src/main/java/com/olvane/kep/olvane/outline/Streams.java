package com.olvane.kep.olvane.outline;

import java.util.Spliterator;
import java.util.Spliterators;
import java.util.function.Consumer;
import java.util.function.Supplier;
import java.util.stream.Stream;
import java.util.stream.StreamSupport;

/** Streams of what comes in steps, each of which follows from the one before. */
final class Streams {
  private Streams() {}

  /** A stream of what a source gives, up to the first null. */
  static <T> Stream<T> of(Supplier<T> source) {
    return StreamSupport.stream(
        new Spliterators.AbstractSpliterator<T>(Long.MAX_VALUE, Spliterator.ORDERED) {
          @Override
          public boolean tryAdvance(Consumer<? super T> action) {
            T next = source.get();
            if (next != null) {
              action.accept(next);
            }
            return next != null;
          }
        },
        false);
  }
}
