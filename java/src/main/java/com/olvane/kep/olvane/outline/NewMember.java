package com.olvane.kep.olvane.outline;

import java.util.ArrayList;
import java.util.Collections;
import java.util.Iterator;
import java.util.List;
import java.util.Objects;

/** A member that is to be made, with the members that are to be made below it. */
public final class NewMember {
  private static final Changes NOTHING = new Changes();

  private final String name;
  private final Changes details;
  private Iterable<NewMember> children = Collections.emptyList();

  /**
   * Plans a member with the defaults of its place.
   *
   * @param name the name, 1 to 80 bytes
   */
  public NewMember(String name) {
    this(name, NOTHING);
  }

  /**
   * Plans a member.
   *
   * @param name the name, 1 to 80 bytes
   * @param details what it is to have besides
   */
  public NewMember(String name, Changes details) {
    this.name = Texts.given("", "name of a new member", name, Texts.NAME);
    this.details = Objects.requireNonNull(details);
  }

  /**
   * Plans members below this one, in place of those planned before.
   *
   * @param members the children in order; they are gone through when the member is made
   * @return this
   */
  public NewMember below(Iterable<NewMember> members) {
    children = Objects.requireNonNull(members);
    return this;
  }

  /**
   * Plans one more member below this one, behind those planned with this method.
   *
   * @param member the child
   * @return this
   */
  public NewMember add(NewMember member) {
    if (!(children instanceof ArrayList)) {
      children = new ArrayList<>();
    }
    ((List<NewMember>) children).add(Objects.requireNonNull(member));
    return this;
  }

  /** {@return the name} */
  public String name() {
    return name;
  }

  Changes details() {
    return details;
  }

  Iterator<NewMember> children() {
    return children.iterator();
  }

  @Override
  public String toString() {
    return name;
  }
}
