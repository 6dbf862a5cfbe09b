package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Search;
import com.olvane.kep.olvane.outline.SearchRun;
import java.util.ArrayList;
import java.util.Collections;
import java.util.ConcurrentModificationException;
import java.util.List;

/** A search in batches, between which the outline is free, and the members that it found. */
final class SearchTask {
  /** More members than these are not listed. */
  private static final int LISTED = 100_000;

  /** Tells, on the event thread, of what was found and of how far the search is. */
  final Event<SearchTask> progress = new Event<>();

  private final Workspace workspace;
  /** The members that were found. */
  final List<Member> hits = new ArrayList<>();
  /** Begins anew what was begun last. */
  private Runnable again;
  private int number;
  boolean running;
  /** The number of members looked at. */
  long searched;
  /** Which of those found is selected; -1 for none. */
  int position = -1;

  SearchTask(Workspace workspace) {
    this.workspace = workspace;
    workspace.changed.hear(change -> {
      // What was found may be gone: it is looked for again when it is next asked for.
      if (running) {
        again.run();
      }
    });
  }

  /** Begins to search and to read such details of what is found; what runs is given up. */
  void start(Search search, Details details) {
    again = () -> start(search, details);
    clear(true);
    int own = number;
    workspace.read(() -> workspace.outline.search(search, details), run -> batch(own, run));
  }

  private void batch(int own, SearchRun run) {
    if (own != number || !running) {
      return;
    }
    workspace.read(() -> {
      try {
        return run.next();
      } catch (ConcurrentModificationException e) {
        // An edit came between; its listener starts anew.
        return Collections.<Member>emptyList();
      }
    }, found -> {
      if (own != number || !running) {
        return;
      }
      hits.addAll(found.subList(0, Math.min(found.size(), LISTED - hits.size())));
      searched = run.membersSearched();
      running = !run.isFinished() && hits.size() < LISTED;
      if (position < 0 && !hits.isEmpty()) {
        next(1);
      }
      progress.tell(this);
      batch(own, run);
    });
  }

  /** Gives the search up; what was found stays. */
  void cancel() {
    running = false;
    progress.tell(this);
  }

  /** Forgets what was found. */
  void clear() {
    clear(false);
  }

  private void clear(boolean starting) {
    number++;
    running = starting;
    hits.clear();
    searched = 0;
    position = -1;
    progress.tell(this);
  }

  /** Goes so many members on among those found, and round at the ends. */
  void next(int step) {
    if (!hits.isEmpty()) {
      go(Math.floorMod(position < 0 && step < 0 ? -1 : position + step, hits.size()));
    }
  }

  /** Goes to one of those found, unless an edit has deleted it since. */
  void go(int hit) {
    position = hit;
    int handle = hits.get(hit).handle();
    workspace.read(() -> workspace.readIfThere(handle, Details.NONE), found -> {
      if (!found.isEmpty()) {
        workspace.select(found);
      }
    });
    progress.tell(this);
  }
}
