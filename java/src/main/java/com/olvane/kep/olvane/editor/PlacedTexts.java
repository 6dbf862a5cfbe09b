package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.DimensionCategory;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;
import java.util.Set;
import java.util.function.BiConsumer;
import java.util.function.Consumer;
import java.util.function.Function;
import java.util.function.ObjIntConsumer;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/**
 * Texts that members have, such as aliases, by the places of these members below some roots: when
 * an edit is taken back, the outline is as it was, only its handles may be others.
 */
final class PlacedTexts {
  private static final int BATCH = 1000;

  private final List<Ref> roots;
  private int[] places = new int[16];
  private final List<String> texts = new ArrayList<>();

  /** Takes down what {@code read} gives of the members below the roots. */
  PlacedTexts(EditContext context, List<Member> roots, Details details,
      Function<Member, List<String>> read) {
    this.roots = roots.stream().map(Ref::to).collect(Collectors.toList());
    walk(context, details, (member, place) -> read.apply(member).forEach(text -> {
      if (texts.size() == places.length) {
        places = Arrays.copyOf(places, 2 * places.length);
      }
      places[texts.size()] = place;
      texts.add(text);
    }));
  }

  private void walk(EditContext context, Details details, ObjIntConsumer<Member> visitor) {
    int place = 0;
    for (Ref root : roots) {
      try (Stream<Member> all = context.outline.subtree(context.member(root), details)) {
        for (Member member : (Iterable<Member>) all::iterator) {
          visitor.accept(member, place++);
        }
      }
    }
  }

  /** Gives the texts to the members that have these places now, read with such details. */
  void restore(EditContext context, Details details, BiConsumer<Member, String> give) {
    int[] handles = new int[texts.size()];
    int[] next = {0};
    walk(context, Details.NONE, (member, place) -> {
      while (next[0] < handles.length && places[next[0]] == place) {
        handles[next[0]++] = member.handle();
      }
    });
    for (int from = 0; from < handles.length; from += BATCH) {
      context.progress(from, handles.length);
      int to = Math.min(handles.length, from + BATCH);
      List<Member> members =
          context.outline.read(Arrays.copyOfRange(handles, from, to), details);
      for (int i = from; i < to; i++) {
        give.accept(members.get(i - from), texts.get(i));
      }
    }
  }

  /**
   * Takes down the attribute associations that a subtree takes part in: as carriers, or as the
   * attributes of others.
   *
   * @return what makes those again that are missing
   */
  static Consumer<EditContext> associations(EditContext context, Member root) {
    Outline outline = context.outline;
    Details details = Details.NONE.attributes();
    List<Member> carriers = Collections.singletonList(root);
    Function<Member, List<String>> read = MemberParts::attributes;
    Member dimension = context.member(root.dimensionHandle(), Details.NONE);
    if (dimension.category() == DimensionCategory.ATTRIBUTE) {
      carriers = outline.dimensions().stream().filter(Member::isAttributed)
          .collect(Collectors.toList());
      Set<String> own;
      try (Stream<Member> all = outline.subtree(root, Details.NONE)) {
        own = all.map(Member::name).collect(Collectors.toSet());
      }
      read = member -> MemberParts.attributes(member).stream().filter(own::contains)
          .collect(Collectors.toList());
    } else if (!dimension.isAttributed()) {
      carriers = Collections.emptyList();
    }
    PlacedTexts names = new PlacedTexts(context, carriers, details, read);
    return again -> names.restore(again, details, (member, name) -> {
      if (MemberParts.attributes(member).contains(name)) {
        return;
      }
      if (member.isDimension()) {
        outline.attributes().associate(member, outline.find(name).get());
      } else {
        outline.change(member, new Changes().attribute(name));
      }
    });
  }
}
