package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.DimensionCategory;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NewMember;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.OutlineException;
import com.olvane.kep.olvane.outline.Place;
import com.olvane.kep.olvane.outline.Share;
import java.util.ArrayList;
import java.util.Collections;
import java.util.HashMap;
import java.util.Iterator;
import java.util.LinkedHashMap;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Locale;
import java.util.Map;
import java.util.NoSuchElementException;
import java.util.Set;
import java.util.function.Consumer;
import java.util.function.Supplier;
import java.util.stream.IntStream;
import java.util.stream.Stream;

/** A subtree as it was, so that it can be made again with all that referred to it. */
final class Snapshot {
  private final List<MemberParts.Part> parts;
  /** The members in pre-order. */
  private final PackedTexts rows = new PackedTexts();
  /** What the root has as a dimension; null where it is none. */
  private final DimensionEdits.Parts dimension;
  /** Makes the associations again of others with attributes in the subtree. */
  private final Consumer<EditContext> associations;
  private int[] handles;
  private Map<Integer, Set<Ref>> refs = new HashMap<>();

  /** Takes down a subtree. */
  Snapshot(EditContext context, Member root) {
    Details details = MemberParts.all(context.outline);
    parts = MemberParts.all(details.aliasTables());
    try (Stream<Member> subtree = context.outline.subtree(root, details)) {
      handles = subtree.peek(this::add).mapToInt(Member::handle).toArray();
    }
    rows.finish();
    dimension = root.isDimension() ? new DimensionEdits.Parts(context, root) : null;
    boolean attributes = context.member(root.dimensionHandle(), Details.NONE).category()
        == DimensionCategory.ATTRIBUTE;
    associations = attributes ? PlacedTexts.associations(context, root) : again -> {};
  }

  private void add(Member member) {
    List<String> row = new ArrayList<>();
    Collections.addAll(row, Integer.toString(member.generation()), member.name(),
        Boolean.toString(member.share() == Share.SHARED));
    parts.forEach(part -> row.add(part.read.apply(member)));
    row.add(Integer.toString(member.udas().size()));
    row.addAll(member.udas());
    if (!member.isDimension()) {
      // Those of a dimension are dimensions and are associated in another way.
      row.addAll(MemberParts.attributes(member));
    }
    rows.add(row);
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
    Maker maker = new Maker(outline);
    int root = 0;
    try {
      // The root comes first, without members: what those of a dimension may have depends on it.
      root = outline.build(place, Collections.singletonList(maker.make()))[0];
      Member made = context.member(root, Details.NONE);
      if (dimension != null) {
        dimension.restoreKind(context, made, place);
      }
      int[] below = outline.build(Place.firstBelow(made), maker.below(1));
      int[] all = IntStream.concat(IntStream.of(root), IntStream.of(below)).toArray();
      if (dimension != null) {
        dimension.restoreNames(outline, made);
      }
      maker.late.forEach((number, name) ->
          outline.rename(context.member(all[number], Details.NONE), name));
      associations.accept(context);
      handles = all;
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

  /** Makes the members again in pre-order, each once. */
  private final class Maker {
    /** So many names may wait in a request before the outline has them. */
    private static final int NAMES_ON_THE_WAY = 4096;

    private final Outline outline;
    private final Supplier<List<String>> source = rows.rows();
    private List<String> next = source.get();
    private final int rootGeneration = Integer.parseInt(next.get(0));
    private int count;
    private final Set<String> onTheWay = new LinkedHashSet<>();
    /**
     * The names that others had when it was the turn of these members, such as shared ones: they
     * are made under other names and are to be renamed.
     */
    final Map<Integer, String> late = new LinkedHashMap<>();

    Maker(Outline outline) {
      this.outline = outline;
    }

    /** The member that comes next, without those below it. */
    NewMember make() {
      List<String> row = next;
      next = source.get();
      Changes changes = new Changes();
      int at = 3;
      for (MemberParts.Part part : parts) {
        // A new member has no texts to begin with.
        part.set(changes, "", row.get(at++));
      }
      int udas = at + 1 + Integer.parseInt(row.get(at));
      row.subList(at + 1, udas).forEach(changes::uda);
      row.subList(udas, row.size()).forEach(changes::attribute);
      NewMember made = new NewMember(free(row.get(1), Boolean.valueOf(row.get(2))), changes);
      count++;
      return made;
    }

    /** The members that come next and are so far below the root, with those below them. */
    Iterable<NewMember> below(int depth) {
      return () -> new Iterator<NewMember>() {
        @Override
        public boolean hasNext() {
          return !next.isEmpty() && Integer.parseInt(next.get(0)) == rootGeneration + depth;
        }

        @Override
        public NewMember next() {
          if (!hasNext()) {
            throw new NoSuchElementException();
          }
          return make().below(below(depth + 1));
        }
      };
    }

    private String free(String name, boolean shared) {
      String folded = name.toLowerCase(Locale.ROOT);
      if (!shared && !onTheWay.contains(folded) && !outline.find(name).isPresent()) {
        onTheWay.add(folded);
        if (onTheWay.size() > NAMES_ON_THE_WAY) {
          onTheWay.remove(onTheWay.iterator().next());
        }
        return name;
      }
      late.put(count, name);
      int number = count;
      while (outline.find("\u2026 " + number).isPresent()) {
        number += 1_000_003;
      }
      return "\u2026 " + number;
    }
  }
}
