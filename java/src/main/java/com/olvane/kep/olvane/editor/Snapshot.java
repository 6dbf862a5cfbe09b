package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.DimensionCategory;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.OutlineException;
import com.olvane.kep.olvane.outline.Place;
import java.util.Collections;
import java.util.HashMap;
import java.util.Map;
import java.util.Set;
import java.util.function.Consumer;
import java.util.stream.IntStream;
import java.util.stream.Stream;

/** A subtree as it was, so that it can be made again with all that referred to it. */
final class Snapshot {
  private final PackedMembers members;
  /** What the root has as a dimension; null where it is none. */
  private final DimensionParts parts;
  /** Makes the associations again of others with attributes in the subtree. */
  private final Consumer<EditContext> associations;
  private int[] handles;
  private Map<Integer, Set<Ref>> refs = new HashMap<>();

  /** Takes down a subtree. */
  static Snapshot of(EditContext context, Member root) {
    return new Snapshot(context, root);
  }

  private Snapshot(EditContext context, Member root) {
    Outline outline = context.outline;
    Details details = MemberParts.all(outline);
    members = new PackedMembers(details.aliasTables());
    IntStream.Builder all = IntStream.builder();
    try (Stream<Member> subtree = outline.subtree(root, details)) {
      subtree.forEach(member -> {
        members.add(member);
        all.add(member.handle());
      });
    }
    members.finish();
    handles = all.build().toArray();
    parts = root.isDimension() ? new DimensionParts(context, root) : null;
    boolean attributes = context.member(root.dimensionHandle(), Details.NONE).category()
        == DimensionCategory.ATTRIBUTE;
    associations = attributes ? PlacedTexts.associations(context, root) : again -> {};
  }

  /** The number of members. */
  int size() {
    return handles.length;
  }

  /** Takes down the references to the members, which were deleted. */
  void unbind(EditContext context) {
    refs = context.unbind(handles);
  }

  /** Makes the subtree again, and whatever referred to it. */
  void restore(EditContext context, Target target) {
    Outline outline = context.outline;
    Place place = target.place(context);
    PackedMembers.Reader reader = members.reader(outline);
    int root = 0;
    try {
      // A dimension comes first, without members: what they may have depends on it.
      int[] made = outline.build(place, Collections.singletonList(reader.root(parts == null)));
      root = made[0];
      if (parts != null) {
        Member dimension = context.member(root, Details.NONE);
        parts.restoreKind(context, dimension, place);
        int[] below = outline.build(Place.firstBelow(dimension), reader.children());
        made = IntStream.concat(IntStream.of(made), IntStream.of(below)).toArray();
        parts.restoreNames(outline, dimension);
      }
      for (Map.Entry<Integer, String> late : reader.namesTakenLate().entrySet()) {
        outline.rename(context.member(made[late.getKey()], Details.NONE), late.getValue());
      }
      associations.accept(context);
      handles = made;
      context.rebind(refs, handles);
    } catch (RuntimeException e) {
      if (root == 0 && e instanceof OutlineException && ((OutlineException) e).made().length > 0) {
        root = ((OutlineException) e).made()[0];
      }
      if (root != 0) {
        outline.delete(context.member(root, Details.NONE));
      }
      throw e;
    }
  }
}
