package com.olvane.kep.olvane.editor;

import java.util.concurrent.LinkedBlockingQueue;
import java.util.concurrent.RejectedExecutionException;
import java.util.concurrent.ThreadPoolExecutor;
import java.util.concurrent.TimeUnit;

/** The thread that uses an outline: one task after the other. */
final class WorkThread {
  private static final class Reader implements Runnable {
    private final Runnable task;

    Reader(Runnable task) {
      this.task = task;
    }

    @Override
    public void run() {
      task.run();
    }
  }

  private final ThreadPoolExecutor executor =
      new ThreadPoolExecutor(1, 1, 0, TimeUnit.SECONDS, new LinkedBlockingQueue<>(), task -> {
        Thread thread = new Thread(task, "outline");
        thread.setDaemon(true);
        return thread;
      });

  private void queue(Runnable task) {
    try {
      executor.execute(task);
    } catch (RejectedExecutionException e) {
      // The outline was closed, and nobody needs an answer.
    }
  }

  /** Queues a task that only reads. */
  void read(Runnable task) {
    queue(new Reader(task));
  }

  /** Queues a task that changes something. */
  void write(Runnable task) {
    queue(task);
  }

  /** Runs the readers that wait; for the task that runs, between its steps. */
  void letReadersIn() {
    for (Runnable waiting : executor.getQueue().toArray(new Runnable[0])) {
      if (waiting instanceof Reader && executor.remove(waiting)) {
        waiting.run();
      }
    }
  }

  /** Takes no more tasks. */
  void end() {
    executor.shutdown();
  }
}
