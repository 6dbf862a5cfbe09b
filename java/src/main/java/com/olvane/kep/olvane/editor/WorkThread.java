package com.olvane.kep.olvane.editor;

import java.util.Queue;
import java.util.concurrent.ConcurrentLinkedQueue;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.RejectedExecutionException;

/** The thread that uses an outline: one task after the other. */
final class WorkThread {
  private final Queue<Runnable> readers = new ConcurrentLinkedQueue<>();
  private final ExecutorService executor = Executors.newSingleThreadExecutor(task -> {
    Thread thread = new Thread(task, "outline");
    thread.setDaemon(true);
    return thread;
  });

  /** Queues a task that only reads. */
  void read(Runnable task) {
    readers.add(task);
    write(() -> {
      if (readers.remove(task)) {
        task.run();
      }
    });
  }

  /** Queues a task that changes something. */
  void write(Runnable task) {
    try {
      executor.execute(task);
    } catch (RejectedExecutionException e) {
      // The outline was closed, and nobody needs an answer.
    }
  }

  /** Runs the readers that wait; for the task that runs, between its steps. */
  void letReadersIn() {
    for (Runnable task = readers.poll(); task != null; task = readers.poll()) {
      task.run();
    }
  }

  /** Takes no more tasks, and drops those that wait. */
  void end() {
    executor.shutdownNow();
  }
}
