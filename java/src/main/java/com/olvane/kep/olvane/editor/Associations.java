package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Attribute;
import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.DimensionCategory;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import java.util.ArrayList;
import java.util.Collections;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/**
 * The attribute associations that a subtree takes part in, as carrier or as attribute, so that they
 * can be made again when deleting or moving it has removed them.
 */
final class Associations {
  private static final class Link {
    /** The carrier; null for a member of the subtree, which {@link #index} tells. */
    Ref carrier;
    int index;
    /** The attribute; null for a member of the subtree, which {@link #attributeIndex} tells. */
    Ref attribute;
    int attributeIndex;
    boolean ofDimensions;
  }

  private final List<Link> links = new ArrayList<>();

  private Associations() {}

  /** Takes down the associations of a subtree as they are now. */
  static Associations of(EditContext context, Member root) {
    Associations found = new Associations();
    Outline outline = context.outline();
    List<Member> dimensions = outline.dimensions();
    Member dimension = dimensions.stream()
        .filter(one -> one.handle() == root.dimensionHandle()).findFirst().get();
    boolean attributes = dimension.category() == DimensionCategory.ATTRIBUTE;
    if (!attributes && !dimension.isAttributed()) {
      return found;
    }
    int[] handles = context.handlesOf(root);
    Map<Integer, Integer> indices = new HashMap<>();
    for (int i = 0; i < handles.length; i++) {
      indices.put(handles[i], i);
    }
    for (Member carriers : attributes ? dimensions : Collections.singletonList(root)) {
      if (carriers.isAttributed() || !attributes) {
        try (Stream<Member> all = outline.subtree(carriers, Details.NONE.attributes())) {
          // What enters references reads from the outline, so the stream ends first.
          List<Member> with = all.filter(member -> member.attributes().stream().anyMatch(
              one -> !attributes || indices.containsKey(one.handle())))
              .collect(Collectors.toList());
          with.forEach(member -> found.add(context, member, attributes, indices));
        }
      }
    }
    return found;
  }

  private void add(
      EditContext context, Member carrier, boolean attributes, Map<Integer, Integer> indices) {
    for (Attribute attribute : carrier.attributes()) {
      Integer index = indices.get(carrier.handle());
      Integer attributeIndex = indices.get(attribute.handle());
      if (attributes && attributeIndex == null) {
        continue;
      }
      Link link = new Link();
      link.ofDimensions = carrier.isDimension();
      if (index != null) {
        link.index = index;
      } else {
        link.carrier = Ref.to(carrier);
        context.handle(link.carrier);
      }
      if (attributeIndex != null) {
        link.attributeIndex = attributeIndex;
      } else {
        link.attribute = Ref.toHandle(attribute.handle());
        context.handle(link.attribute);
      }
      links.add(link);
    }
  }

  /** Makes those again that are missing; {@code handles} are those of the subtree now. */
  void restore(EditContext context, int[] handles) {
    Outline outline = context.outline();
    Details details = Details.NONE.attributes();
    for (Link link : links) {
      int carrierHandle =
          link.carrier == null ? handles[link.index] : context.handle(link.carrier);
      int attributeHandle =
          link.attribute == null ? handles[link.attributeIndex] : context.handle(link.attribute);
      List<Member> both =
          outline.read(new int[] {carrierHandle, attributeHandle}, details);
      Member carrier = both.get(0);
      if (carrier.attributes().stream().anyMatch(one -> one.handle() == attributeHandle)) {
        continue;
      }
      if (link.ofDimensions) {
        outline.attributes().associate(carrier, both.get(1));
      } else {
        outline.change(carrier, new Changes().attribute(both.get(1).name()));
      }
      context.change().member(carrierHandle);
    }
  }
}
