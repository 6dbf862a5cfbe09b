package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NewMember;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.OutlineException;
import com.olvane.kep.olvane.outline.Place;
import java.util.Arrays;
import java.util.Collections;
import java.util.Map;
import java.util.stream.Stream;

/** A subtree as it was, so that it can be made again: its members, and what dimensions have. */
final class Snapshot {
  private final PackedMembers members;
  private final DimensionParts parts;

  private Snapshot(PackedMembers members, DimensionParts parts) {
    this.members = members;
    this.parts = parts;
  }

  /** Takes down a subtree. */
  static Snapshot of(EditContext context, Member root) {
    Outline outline = context.outline();
    Details details = ChangeEdit.all(outline);
    PackedMembers packed = new PackedMembers(details.aliasTables());
    try (Stream<Member> subtree = outline.subtree(root, details)) {
      subtree.forEach(packed::add);
    }
    return new Snapshot(packed.finish(),
        root.isDimension() ? DimensionParts.of(context, root) : null);
  }

  /**
   * Makes the subtree again.
   *
   * @return the handles of its members in pre-order
   */
  int[] restore(EditContext context, Target target) {
    Outline outline = context.outline();
    Place place = target.place(context);
    PackedMembers.Reader reader = members.reader(outline);
    int root = 0;
    try {
      NewMember plan = reader.root();
      // A dimension comes first, without members: what they may have depends on it.
      int[] handles = outline.build(place,
          Collections.singletonList(parts == null ? plan : reader.withoutChildren(plan)));
      root = handles[0];
      if (parts != null) {
        Member dimension = member(outline, root);
        parts.restoreKind(context, dimension, place);
        int[] below = outline.build(Place.firstBelow(dimension), reader.children());
        handles = Arrays.copyOf(handles, 1 + below.length);
        System.arraycopy(below, 0, handles, 1, below.length);
        parts.restoreNames(outline, dimension);
      }
      for (Map.Entry<Integer, String> late : reader.namesTakenLate().entrySet()) {
        outline.rename(member(outline, handles[late.getKey()]), late.getValue());
      }
      return handles;
    } catch (RuntimeException e) {
      if (root == 0 && e instanceof OutlineException && ((OutlineException) e).made().length > 0) {
        root = ((OutlineException) e).made()[0];
      }
      if (root != 0) {
        outline.delete(member(outline, root));
      }
      throw e;
    }
  }

  private static Member member(Outline outline, int handle) {
    return outline.read(new int[] {handle}, Details.NONE).get(0);
  }
}
