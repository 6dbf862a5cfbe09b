package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.defs.outline.HoldingBean;
import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.CopyRun;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.DimensionCategory;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NewMember;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.OutlineException;
import com.olvane.kep.olvane.outline.Place;
import com.olvane.kep.olvane.outline.Share;
import com.olvane.kep.olvane.outline.Status;
import java.util.ArrayList;
import java.util.Collections;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.concurrent.CancellationException;
import java.util.concurrent.atomic.AtomicReference;
import java.util.function.Consumer;
import java.util.function.Function;
import java.util.stream.Collectors;
import java.util.stream.IntStream;
import java.util.stream.Stream;

/** The edits of members. */
final class MemberEdits {
  private static final Details PLACE = Details.NONE.place();

  /** Bytes of a member's name that an outline keeps. */
  private static final int NAME_LIMIT = 80;

  private MemberEdits() {}

  /** "Delete Cola", "Delete 3 members". */
  static String title(String verb, List<Member> members) {
    return verb + " " + (members.size() == 1 ? members.get(0).name()
        : String.format("%,d members", members.size()));
  }

  private static Edit each(String title, List<Member> members, Function<Ref, Edit.Step> step) {
    return new Edit(title, Edit.all(
        members.stream().map(Ref::to).map(step).collect(Collectors.toList())));
  }

  /** Members came, or went with a negative number; one, or null for none, is to be selected. */
  private static void tell(EditContext context, long count, Ref selected) {
    context.membersAdded += count;
    if (selected != null) {
      context.selection.add(selected);
    }
  }

  /** The number of members of subtrees. */
  static long count(Outline outline, List<Member> roots) {
    long count = 0;
    for (Member root : roots) {
      try (Stream<Member> all = outline.subtree(root, Details.NONE)) {
        count += all.count();
      }
    }
    return count;
  }

  // ---- Making and deleting ----

  /** Makes a member of a name, or of the name with a number behind it if it is in use. */
  static Edit create(Target target, String proposed) {
    AtomicReference<String> name = new AtomicReference<>(proposed);
    return new Edit(() -> "Create " + name, context -> {
      Outline outline = context.outline;
      name.set(free(outline, proposed));
      Ref made = Ref.toCome();
      context.bind(made, outline.build(target.place(context),
          Collections.singletonList(new NewMember(name.get())))[0]);
      tell(context, 1, made);
      return delete(made, null);
    });
  }

  /** A name that no member has: one that is proposed, or that with a number behind it. */
  private static String free(Outline outline, String proposed) {
    String name = proposed;
    String begin = proposed;
    for (int number = 2; outline.find(name).isPresent(); number++) {
      while (HoldingBean.encodedLength(begin + " " + number) > NAME_LIMIT) {
        begin = begin.substring(0, begin.offsetByCodePoints(begin.length(), -1));
      }
      name = begin + " " + number;
    }
    return name;
  }

  /** Deletes members with everything below them. */
  static Edit delete(List<Member> members) {
    return each(title("Delete", members), members, member -> delete(member, null));
  }

  /** Deletes a member; then another one is selected, the parent for null. */
  private static Edit.Step delete(Ref member, Ref selected) {
    return context -> {
      Member now = context.member(member, PLACE);
      Target origin = Target.of(context, now);
      Snapshot snapshot = new Snapshot(context, now);
      context.outline.delete(now);
      snapshot.unbind(context);
      tell(context, -snapshot.size(),
          selected == null ? Ref.toHandle(now.parentHandle()) : selected);
      return bringBack(member, origin, snapshot, selected);
    };
  }

  private static Edit.Step bringBack(Ref member, Target origin, Snapshot snapshot, Ref selected) {
    return context -> {
      snapshot.restore(context, origin);
      tell(context, snapshot.size(), member);
      return delete(member, selected);
    };
  }

  // ---- Moving and copying ----

  /** Moves members with everything below them, one behind the other. */
  static Edit move(List<Member> members, Target target) {
    return move(members, outline -> target);
  }

  /** The same to where they belong when it comes to that; null for staying where they are. */
  static Edit move(List<Member> members, Function<Outline, Target> target) {
    return chain("Move", members, target, false);
  }

  /** Copies members with everything below them, one behind the other. */
  static Edit copy(List<Member> members, Target target) {
    return chain("Copy", members, outline -> target, true);
  }

  private static Edit chain(
      String verb, List<Member> members, Function<Outline, Target> first, boolean copying) {
    AtomicReference<String> where = new AtomicReference<>("");
    return new Edit(() -> title(verb, members) + where, context -> {
      Target target = first.apply(context.outline);
      if (target == null) {
        throw new CancellationException();
      }
      int parent = target.parent(context);
      List<Edit.Step> steps = new ArrayList<>();
      for (Member member : members) {
        Ref ref = Ref.to(member);
        Ref placed = copying ? Ref.toCome() : ref;
        steps.add(copying ? copy(ref, target, placed) : move(ref, target, again -> {}));
        target = Target.behind(placed);
      }
      boolean within = context.member(members.get(0).handle(), PLACE).parentHandle() == parent;
      where.set(parent == EditContext.DIMENSIONS ? ""
          : (within ? " within " : " to ") + context.member(parent, Details.NONE).name());
      return Edit.all(steps).run(context);
    });
  }

  private static Edit.Step move(Ref member, Target target, Consumer<EditContext> associate) {
    return context -> {
      Member now = context.member(member, PLACE);
      Target origin = Target.of(context, now);
      int parent = target.parent(context);
      boolean leaves = parent != EditContext.DIMENSIONS
          && context.member(parent, Details.NONE).dimensionHandle() != now.dimensionHandle();
      Consumer<EditContext> back =
          leaves ? PlacedTexts.associations(context, now) : again -> {};
      context.outline.move(now, target.place(context));
      associate.accept(context);
      context.selection.add(member);
      return move(member, origin, back);
    };
  }

  private static Edit.Step copy(Ref source, Target target, Ref copy) {
    return context -> {
      Member member = context.member(source);
      int parent = target.parent(context);
      requireOutside(context, member, parent);
      long total = count(context.outline, Collections.singletonList(member));
      CopyRun run = beginCopy(context.outline, member, target.place(context));
      try {
        while (run.next()) {
          context.progress(run.copied(), total);
        }
        nameApart(context, run.result());
      } catch (RuntimeException e) {
        run.cancel();
        throw e;
      }
      context.bind(copy, run.result().handle());
      tell(context, total, copy);
      return delete(copy, source);
    };
  }

  private static CopyRun beginCopy(Outline outline, Member member, Place place) {
    try {
      return outline.copy(member, place);
    } catch (OutlineException e) {
      if (e.status() == Status.COPY_FAILED && member.isDimension()) {
        throw new IllegalArgumentException(member.name() + " is a dimension: it cannot be copied"
            + " below a member. Choose a dimension and Paste After.", e);
      }
      throw e;
    }
  }

  /**
   * Gives a copy that came beside a member of its name another one. Attributes, which are known by
   * their names, all get names that no others have.
   */
  private static void nameApart(EditContext context, Member copy) {
    Outline outline = context.outline;
    if (context.member(copy.dimensionHandle(), PLACE).category() == DimensionCategory.ATTRIBUTE) {
      try (Stream<Member> all = outline.subtree(copy, Details.NONE)) {
        all.filter(one -> outline.find(one.name()).get().handle() != one.handle())
            .collect(Collectors.toList())
            .forEach(member -> outline.rename(member, free(outline, member.name())));
      }
      context.remark = "The copies of attributes have numbers behind their names.";
    } else if (hasNamesake(outline, copy)) {
      String name = free(outline, copy.name());
      outline.rename(copy, name);
      context.remark =
          "There is a " + copy.name() + " already; the copy is called " + name + ".";
    } else {
      context.remark = "The copies have the names of what was copied, which are now there twice.";
    }
  }

  /** Whether a member has a sibling of its name. */
  private static boolean hasNamesake(Outline outline, Member member) {
    Member now = outline.read(member, PLACE);
    int parent = now.parentHandle();
    try (Stream<Member> siblings = parent == EditContext.DIMENSIONS
        ? outline.dimensions().stream()
        : outline.children(outline.read(new int[] {parent}, Details.NONE).get(0), Details.NONE)) {
      return siblings.filter(one -> one.name().equals(now.name())).count() > 1;
    }
  }

  /** A copy that grows into itself would have no end. */
  private static void requireOutside(EditContext context, Member source, int parent) {
    for (int at = parent; at != 0; at = context.member(at, PLACE).parentHandle()) {
      if (at == source.handle()) {
        throw new IllegalArgumentException(
            source.name() + " cannot be copied below itself; choose a place outside of it.");
      }
    }
  }

  // ---- Sorting ----

  /** Sorts the children of a member by name. */
  static Edit sort(Member parent, boolean ascending) {
    Ref ref = Ref.to(parent);
    String title = "Sort the children of " + parent.name() + (ascending ? "" : " from Z to A");
    return new Edit(title, context -> {
      int[] before = children(context, ref);
      context.outline.sortChildren(context.member(ref), ascending);
      int[] after = children(context, ref);
      Map<Integer, Integer> places = new HashMap<>();
      IntStream.range(0, after.length).forEach(place -> places.put(after[place], place));
      return arrange(ref, IntStream.of(before).map(places::get).toArray());
    });
  }

  private static int[] children(EditContext context, Ref parent) {
    try (Stream<Member> children =
        context.outline.children(context.member(parent), Details.NONE)) {
      return children.mapToInt(Member::handle).toArray();
    }
  }

  /** Puts children in another order: those at the places that are given, one behind the other. */
  private static Edit.Step arrange(Ref parent, int[] places) {
    return context -> {
      int[] now = children(context, parent);
      int[] back = new int[places.length];
      Target target = Target.lastBelow(parent);
      for (int i = places.length - 1; i >= 0; i--) {
        back[places[i]] = i;
        Ref child = Ref.toHandle(now[places[i]]);
        context.outline.move(context.member(child), target.place(context));
        target = Target.before(child);
      }
      return arrange(parent, back);
    };
  }

  // ---- Names and details ----

  static Edit rename(Member member, String name) {
    // Whoever has typed the name may have gone on to another member by now.
    return new Edit("Rename " + member.name() + " to " + name,
        rename(Ref.to(member), name, false));
  }

  private static Edit.Step rename(Ref member, String name, boolean select) {
    return context -> {
      Member before = context.member(member);
      boolean taken = before.share() != Share.SHARED && context.outline.find(name)
          .filter(other -> other.handle() != before.handle()).isPresent();
      context.outline.rename(before, name);
      context.remark = taken ? "There is another member called " + name + "." : "";
      if (select) {
        context.selection.add(member);
      }
      return rename(member, before.name(), true);
    };
  }

  /**
   * Changes details of members, of each what is right for it.
   *
   * @param changes gives the changes of a member, which was read with all details
   */
  static Edit change(String title, List<Member> members, Function<Member, Changes> changes) {
    return each(title, members, member -> change(member, changes));
  }

  private static Edit.Step change(Ref member, Function<Member, Changes> changes) {
    return context -> {
      Outline outline = context.outline;
      Member before = context.member(member, MemberParts.all(outline));
      Member now;
      try {
        now = outline.change(before, changes.apply(before));
      } catch (OutlineException e) {
        Member half = outline.read(before, before.details());
        outline.change(half, MemberParts.difference(half, before));
        throw e;
      }
      Changes back = MemberParts.difference(now, before);
      return change(member, again -> back);
    };
  }
}
