package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Member;
import java.util.ArrayList;
import java.util.List;
import java.util.function.Function;

/** The edits of members. */
final class MemberEdits {
  private MemberEdits() {}

  /** Makes a member of a name, or of the name with a number behind it if it is in use. */
  static Edit create(Target target, String name) {
    return new CreateEdit(target, name);
  }

  static Edit rename(Member member, String name) {
    return new RenameEdit(member, name);
  }

  /** Deletes members with everything below them. */
  static Edit delete(List<Member> members) {
    return each("Delete", members, DeleteEdit::new);
  }

  /** Moves members with everything below them, one behind the other. */
  static Edit move(List<Member> members, Target target) {
    return chain("Move", members, target, MoveEdit::new);
  }

  /** Copies members with everything below them, one behind the other. */
  static Edit copy(List<Member> members, Target target) {
    return chain("Copy", members, target, CopyEdit::new);
  }

  /** Sorts the children of a member by name. */
  static Edit sort(Member parent, boolean ascending) {
    return new SortEdit(parent, ascending);
  }

  /** Changes details of members. */
  static Edit change(List<Member> members, Changes changes) {
    return change(title("Change", members), members, member -> changes);
  }

  /**
   * Changes details of members, of each what is right for it.
   *
   * @param changes gives the changes of a member, which was read with all details
   */
  static Edit change(String title, List<Member> members, Function<Member, Changes> changes) {
    return new ChangeEdit(title, members, changes);
  }

  /** "Delete Cola", "Delete 3 members". */
  static String title(String verb, List<Member> members) {
    return verb + " "
        + (members.size() == 1 ? members.get(0).name() : members.size() + " members");
  }

  private interface OfMember {
    Edit of(Member member);
  }

  private interface ToTarget {
    Edit of(Member member, Target target);
  }

  private static Edit each(String verb, List<Member> members, OfMember edit) {
    List<Edit> edits = new ArrayList<>();
    for (Member member : members) {
      edits.add(edit.of(member));
    }
    return edits.size() == 1 ? edits.get(0) : new Edit.Batch(title(verb, members), edits);
  }

  private static Edit chain(String verb, List<Member> members, Target first, ToTarget edit) {
    List<Edit> edits = new ArrayList<>();
    Target target = first;
    for (Member member : members) {
      Edit one = edit.of(member, target);
      edits.add(one);
      target = Target.behind(one instanceof CopyEdit ? ((CopyEdit) one).copy() : Ref.to(member));
    }
    return edits.size() == 1 ? edits.get(0) : new Edit.Batch(title(verb, members), edits);
  }
}
