package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import java.util.ArrayList;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.concurrent.CancellationException;
import java.util.stream.Stream;

/**
 * What edits work with: the outline, the table that keeps references right, and the list of what
 * changed. Used on the work thread only.
 */
final class EditContext {
  /** Tells how far a long edit is, and whether it is to be given up. */
  interface Progress {
    /** {@return false to give it up} */
    boolean at(long done, long total);
  }

  private static final Progress NONE = (done, total) -> true;

  private final Outline outline;
  private final Map<Integer, List<Ref>> refs = new HashMap<>();
  private OutlineChange change = new OutlineChange();
  private Progress progress = NONE;

  EditContext(Outline outline) {
    this.outline = outline;
  }

  Outline outline() {
    return outline;
  }

  /** What has changed since {@link #begin}. */
  OutlineChange change() {
    return change;
  }

  /** Begins to gather changes anew; {@code progress} is null for an edit that can't be given up. */
  void begin(Progress progress) {
    change = new OutlineChange();
    this.progress = progress == null ? NONE : progress;
  }

  /** Tells how far the edit is; throws when it is to be given up. */
  void progress(long done, long total) {
    if (!progress.at(done, total)) {
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
    List<Ref> known = refs.computeIfAbsent(ref.handle, h -> new ArrayList<>(1));
    if (!known.contains(ref)) {
      known.add(ref);
    }
    return ref.handle;
  }

  /** Reads a member. */
  Member member(Ref ref, Details details) {
    return outline.read(new int[] {handle(ref)}, details).get(0);
  }

  /** Reads a member's name and properties. */
  Member member(Ref ref) {
    return member(ref, Details.NONE);
  }

  /** Says which member a reference is to from now on. */
  void bind(Ref ref, int handle) {
    ref.handle = handle;
    handle(ref);
  }

  /** The references to members of a subtree, by their place in pre-order. */
  static final class Bound {
    private final Map<Integer, List<Ref>> byIndex = new HashMap<>();
    private int size;
  }

  /** Deletes a subtree; {@link #rebind} gives its references to the members that come back. */
  Bound delete(Member root) {
    Bound bound = new Bound();
    List<Integer> handles = new ArrayList<>();
    try (Stream<Member> members = outline.subtree(root, Details.NONE)) {
      members.forEach(member -> {
        List<Ref> known = refs.get(member.handle());
        if (known != null) {
          bound.byIndex.put(bound.size, known);
          handles.add(member.handle());
        }
        bound.size++;
      });
    }
    outline.delete(root);
    for (Integer handle : handles) {
      for (Ref ref : refs.remove(handle)) {
        ref.handle = 0;
      }
    }
    change.added(-bound.size);
    return bound;
  }

  /** Gives references to the members of a subtree that has come back. */
  void rebind(Bound bound, int[] handles) {
    bound.byIndex.forEach((index, known) -> {
      for (Ref ref : known) {
        bind(ref, handles[index]);
      }
    });
  }

  /** The handles of a subtree in pre-order. */
  int[] handlesOf(Member root) {
    try (Stream<Member> members = outline.subtree(root, Details.NONE)) {
      return members.mapToInt(Member::handle).toArray();
    }
  }
}
