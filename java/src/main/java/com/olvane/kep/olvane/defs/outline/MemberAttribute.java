package com.olvane.kep.olvane.defs.outline;

/** An attribute member that a base member is associated with. */
public final class MemberAttribute {
  private String dimension;
  private String memberName;

  /** Creates an empty object. */
  public MemberAttribute() {}

  /** {@return the name of the attribute dimension} */
  public String getDimension() {
    return dimension;
  }

  /**
   * Sets the name of the attribute dimension.
   *
   * @param dimension the name of the attribute dimension
   */
  public void setDimension(String dimension) {
    this.dimension = dimension;
  }

  /** {@return the name of the attribute member} */
  public String getMemberName() {
    return memberName;
  }

  /**
   * Sets the name of the attribute member.
   *
   * @param memberName the name of the attribute member
   */
  public void setMemberName(String memberName) {
    this.memberName = memberName;
  }

  @Override
  public String toString() {
    return "MemberAttribute[dimension=" + dimension + ", memberName=" + memberName + "]";
  }
}
