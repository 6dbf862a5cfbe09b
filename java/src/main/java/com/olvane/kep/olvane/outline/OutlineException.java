package com.olvane.kep.olvane.outline;

/** A call that an outline refused. The message holds everything that is known of it. */
public final class OutlineException extends RuntimeException {
  private static final long serialVersionUID = 1;

  /** The status. */
  private final int status;
  /** The name of the member. */
  private final String member;
  /** The field in words. */
  private final String field;
  /** The number of bytes that fit. */
  private final int limit;
  /** The members made before. */
  private int[] made = {};

  /**
   * A call that failed.
   *
   * @param action what cannot be done; the name of the member follows, where there is one
   */
  OutlineException(String action, int status, String member, String field) {
    this(status, member, field, 0,
        "Cannot " + action + (member.isEmpty() ? "" : " " + member)
            + (field.isEmpty() ? "" : " (" + field + ")") + ": "
            + Status.sentence(status));
  }

  private OutlineException(int status, String member, String field, int limit, String message) {
    super(message);
    this.status = status;
    this.member = member;
    this.field = field;
    this.limit = limit;
  }

  /** A text that was refused before any call; {@code problem} goes on with the sentence. */
  static OutlineException ofText(String member, String field, int limit, String problem) {
    return new OutlineException(Status.REFUSED, member, field, limit,
        "The " + field + (member.isEmpty() ? "" : " of " + member) + " " + problem);
  }

  OutlineException madeBefore(int[] handles) {
    made = handles;
    return this;
  }

  /**
   * {@return the handles of the members that a build had made before this one was refused, in
   * pre-order; they are in the outline. Empty for other calls}
   */
  public int[] made() {
    return made.clone();
  }

  /** {@return the status, {@link Status#REFUSED} where a text was refused before any call} */
  public int status() {
    return status;
  }

  /** {@return the name of the member that it is about, empty where it is about none} */
  public String member() {
    return member;
  }

  /** {@return the field that it is about, in words, empty where it is about none} */
  public String field() {
    return field;
  }

  /** {@return the number of bytes that fit, 0 where it is not about a length} */
  public int limit() {
    return limit;
  }
}
