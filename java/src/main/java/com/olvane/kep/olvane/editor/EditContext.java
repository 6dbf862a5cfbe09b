package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import java.util.ArrayList;
import java.util.HashMap;
import java.util.HashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.concurrent.CancellationException;

/**
 * What edits work with: the outline, the table that keeps references right, and what came of them.
 * Used on the work thread only.
 */
final class EditContext {
  /** Tells how far a long edit is, and whether it is to be given up. */
  interface Progress {
    /** {@return false to give it up} */
    boolean at(long done, long total);
  }

  private static final Progress NONE = (done, total) -> true;

  /** Stands for the parent of the dimensions. */
  static final int DIMENSIONS = 0;

  final Outline outline;
  private final Map<Integer, Set<Ref>> refs = new HashMap<>();
  /** The members to be selected after the edits since {@link #begin}. */
  final List<Ref> selection = new ArrayList<>();
  /** How many members came since then, less those that went. */
  long membersAdded;
  /** What whoever made the last of them should know of; empty for nothing. */
  String remark = "";
  private Progress progress = NONE;

  EditContext(Outline outline) {
    this.outline = outline;
  }

  /** Begins another edit. */
  void begin(Progress wanted) {
    selection.clear();
    membersAdded = 0;
    remark = "";
    progress = wanted;
  }

  /** Tells how far the edit is; throws when it is to be given up. */
  void progress(long done, long total) {
    if (!progress.at(done, total)) {
      // What follows takes back what was done.
      progress = NONE;
      throw new CancellationException();
    }
  }

  // ---- References ----

  /** The handle of a member; 0 for a null reference. */
  int handle(Ref ref) {
    if (ref == null) {
      return 0;
    }
    if (ref.handle == 0) {
      throw new IllegalStateException("The member is not in the outline any more");
    }
    refs.computeIfAbsent(ref.handle, handle -> new HashSet<>(2)).add(ref);
    return ref.handle;
  }

  /** Reads a member. */
  Member member(Ref ref, Details details) {
    return member(handle(ref), details);
  }

  /** Reads a member's name and properties. */
  Member member(Ref ref) {
    return member(ref, Details.NONE);
  }

  /** Reads the member that has a handle now. */
  Member member(int handle, Details details) {
    return outline.read(new int[] {handle}, details).get(0);
  }

  /** Says which member a reference is to from now on. */
  void bind(Ref ref, int handle) {
    ref.handle = handle;
    handle(ref);
  }

  /** Takes down the references to members that went, by the numbers of these members. */
  Map<Integer, Set<Ref>> unbind(int[] handles) {
    Map<Integer, Set<Ref>> bound = new HashMap<>();
    for (int i = 0; i < handles.length; i++) {
      Set<Ref> known = refs.remove(handles[i]);
      if (known != null) {
        known.forEach(ref -> ref.handle = 0);
        bound.put(i, known);
      }
    }
    return bound;
  }

  /** Gives references to the members that have come back. */
  void rebind(Map<Integer, Set<Ref>> bound, int[] handles) {
    bound.forEach((number, known) -> known.forEach(ref -> bind(ref, handles[number])));
  }
}
