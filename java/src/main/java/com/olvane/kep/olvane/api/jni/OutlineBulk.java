package com.olvane.kep.olvane.api.jni;

import java.nio.ByteBuffer;
import java.nio.ByteOrder;

/**
 * The fast lane of {@link OutlineJni}: reads and makes many members in one call, as records packed
 * into a direct buffer. Its library, {@code libkepotl-bulk.so}, is loaded on first use from where
 * {@code libkepotl.so} was found; {@link OutlineJni} works without it. Programs use it through
 * {@code com.olvane.kep.olvane.outline}.
 *
 * <p>This class describes the format for both sides: the C++ side takes the constants from here,
 * too. Numbers are {@link #ORDER little-endian} and not aligned. A buffer holds a header of
 * {@link #REQUEST} bytes, behind it the request, and behind that the answer of a reading
 * operation. Whoever asks writes the header's first part and the request; the call writes the
 * rest, and moves {@link #START} and {@link #NEXT} on, so that the next call with the same buffer
 * goes on where this one stopped.
 *
 * <p><b>A text</b> is a number, the bytes in modified UTF-8 and a zero byte. The number is twice
 * the length in bytes, plus 1 when a byte is not ASCII; it is {@link #NO_TEXT}, with nothing
 * behind it, where there is no text.
 *
 * <p><b>A request</b> begins with the number of alias tables and their names. For
 * {@link #READ_MEMBERS} the handles of the members follow up to {@link #REQUEST_END}, for
 * {@link #FIND} a name, for {@link #CREATE} and {@link #UPDATE} records as below.
 *
 * <p><b>A record that was read</b> has {@link #READ_FIXED} bytes at the offsets {@code READ_...}
 * and then the name, the dimension's name (unless {@link #SAME_DIMENSION} says that it is that of
 * the record before), the currency member, the comment, and of the details that were asked for, in
 * this order: the extended comment, the formula, one alias per table, the number of user-defined
 * attributes and each as a text, the number of attribute members and of each the handle, the
 * dimension's name and the name.
 *
 * <p><b>A record to be made or changed</b> has {@link #MAKE_FIXED} bytes at the offsets
 * {@code MAKE_...} and then the name, the currency member, the comment, the extended comment, the
 * formula, the number of aliases and of each the number of its table in the request and the text,
 * the number of user-defined attributes and each as a text, and the number of attribute members
 * and the name of each. What has no text is left as it is. The name is not read in an update. The
 * handle of a member that was made is written into its record.
 */
public final class OutlineBulk {
  static {
    NativeLibrary.loadBulk();
  }

  /** The order of the bytes of all numbers. */
  public static final ByteOrder ORDER = ByteOrder.LITTLE_ENDIAN;

  /** The version of the format; the first number of the header. */
  public static final int VERSION = 1;

  /** Operation: the children of {@link #MEMBER}, or the dimensions where it is 0. */
  public static final int READ_CHILDREN = 1;
  /** Operation: {@link #MEMBER} and its descendants in pre-order. */
  public static final int READ_SUBTREE = 2;
  /** Operation: the members of the request. {@link #NEXT} is the index of the first one. */
  public static final int READ_MEMBERS = 3;
  /** Operation: makes the members of the request. */
  public static final int CREATE = 4;
  /** Operation: changes the members of the request. */
  public static final int UPDATE = 5;
  /** Operation: the member whose name the request gives; a failure is about the name. */
  public static final int FIND = 7;
  /** Operation: sets {@link #COUNT} to the number of siblings before {@link #MEMBER}. */
  public static final int POSITION = 6;

  // ---- Header: what the caller writes ----

  /** Offset of the operation. */
  public static final int OPERATION = 4;
  /** Offset of the outline's handle. */
  public static final int OUTLINE = 8;
  /** Offset of the instance's handle. */
  public static final int INSTANCE = 12;
  /** Offset of the details to read, a set of {@code DETAIL_...}. */
  public static final int DETAILS = 16;
  /** Offset of the handle of the parent or the subtree's root. */
  public static final int MEMBER = 20;
  /** Offset of what {@link #NEXT} means, one of {@code FROM_...}. */
  public static final int START = 24;
  /** Offset of where to begin. */
  public static final int NEXT = 28;
  /** Offset of the largest number of records to read, 0 for as many as fit. */
  public static final int LIMIT = 32;
  /** Offset of the end of the request, where an answer begins. */
  public static final int REQUEST_END = 36;

  /** Start: at the first one. */
  public static final int FROM_FIRST = 0;
  /** Start: at the member of this handle. */
  public static final int FROM_MEMBER = 1;
  /** Start: behind the child of this handle. */
  public static final int FROM_BEHIND = 2;
  /** Start: at the child of this position, counted from 0. */
  public static final int FROM_POSITION = 3;

  // ---- Header: what the call writes ----

  /** Offset of the status: 0, or that of the API call that failed. */
  public static final int STATUS = 40;
  /** Offset of the number of whole records that were read or made. */
  public static final int COUNT = 44;
  /** Offset of 1 when nothing more is to come, else 0. */
  public static final int DONE = 48;
  /** Offset of the bytes that the next record needs behind the request where none fitted, else 0. */
  public static final int NEEDED = 52;
  /** Offset of the handle of the member that a status is about, or 0. */
  public static final int FAILED_MEMBER = 56;
  /** Offset of what a status is about, one of {@code FIELD_...}. */
  public static final int FAILED_FIELD = 60;
  /** Offset of the request: the length of the header. */
  public static final int REQUEST = 64;

  /** The number of a text that is not there. */
  public static final int NO_TEXT = -1;

  // ---- Details ----

  /** Detail: parent and previous sibling. */
  public static final int DETAIL_PLACE = 1;
  /** Detail: the extended comment. */
  public static final int DETAIL_EXTENDED_COMMENT = 2;
  /** Detail: the formula. */
  public static final int DETAIL_FORMULA = 4;
  /** Detail: the aliases in the tables of the request. */
  public static final int DETAIL_ALIASES = 8;
  /** Detail: the user-defined attributes. */
  public static final int DETAIL_UDAS = 16;
  /** Detail: the associated attribute members. */
  public static final int DETAIL_ATTRIBUTES = 32;

  // ---- Records that were read ----

  /** Offset of the record's length in bytes. */
  public static final int READ_LENGTH = 0;
  /** Offset of the member's handle. */
  public static final int READ_HANDLE = 4;
  /** Offset of the dimension's handle. */
  public static final int READ_DIMENSION = 8;
  /** Offset of the parent's handle, 0 for a dimension or when it was not asked for. */
  public static final int READ_PARENT = 12;
  /** Offset of the previous sibling's handle, 0 for a first one or when it was not asked for. */
  public static final int READ_PREVIOUS = 16;
  /** Offset of the number of children. */
  public static final int READ_CHILD_COUNT = 20;
  /** Offset of the codes, 16 bits each, in the order {@code CODE_...}. */
  public static final int READ_CODES = 24;
  /** Offset of the flags, a set of {@code FLAG_...} and {@code SAME_...}. */
  public static final int READ_FLAGS = 44;
  /** The length of what comes before the texts. */
  public static final int READ_FIXED = 48;

  /** Index of the level. */
  public static final int CODE_LEVEL = 0;
  /** Index of the generation. */
  public static final int CODE_GENERATION = 1;
  /** Index of the consolidation code. */
  public static final int CODE_CONSOLIDATION = 2;
  /** Index of the currency conversion code. */
  public static final int CODE_CONVERSION = 3;
  /** Index of the time balance code. */
  public static final int CODE_TIME_BALANCE = 4;
  /** Index of the time balance skip code. */
  public static final int CODE_TIME_BALANCE_SKIP = 5;
  /** Index of the share code. */
  public static final int CODE_SHARE = 6;
  /** Index of the storage type of a dimension, 0 for other members. */
  public static final int CODE_STORAGE_TYPE = 7;
  /** Index of the dimension category. */
  public static final int CODE_CATEGORY = 8;
  /** Index of the attribute type. */
  public static final int CODE_ATTRIBUTE_TYPE = 9;
  /** The number of codes. */
  public static final int CODE_COUNT = 10;

  /** Flag: two-pass calculation. */
  public static final int FLAG_TWO_PASS = 1;
  /** Flag: variance is reported as for an expense. */
  public static final int FLAG_EXPENSE = 2;
  /** Flag: has attribute members or attribute dimensions. */
  public static final int FLAG_ATTRIBUTED = 4;
  /** Flag: hybrid members lie below a dimension; a member of level 0 is one. */
  public static final int FLAG_HYBRID_DESCENDANTS = 8;
  /** Flag: hybrid analysis is enabled for the dimension. */
  public static final int FLAG_HYBRID_ENABLED = 16;
  /** Flag: the dimension's name is that of the record before, and left out. */
  public static final int SAME_DIMENSION = 32;
  /** Flag: the codes are those of the record before. */
  public static final int SAME_CODES = 64;

  // ---- Records to be made or changed ----

  /** Offset of the record's length in bytes. */
  public static final int MAKE_LENGTH = 0;
  /** Offset of the handle: of the member to change, or receives that of the member made. */
  public static final int MAKE_HANDLE = 4;
  /** Offset of the parent: a handle, or 0 for a dimension. */
  public static final int MAKE_PARENT = 8;
  /** Offset of the sibling to stand behind: a handle, or 0 to be the first child. */
  public static final int MAKE_SIBLING = 12;
  /** Offset of what is given, a set of {@code GIVEN_...}. */
  public static final int MAKE_GIVEN = 16;
  /** Offset of the values of those {@code FLAG_...} that are given. */
  public static final int MAKE_FLAGS = 20;
  /** Offset of the codes {@link #CODE_CONSOLIDATION} to {@link #CODE_SHARE}, 16 bits each. */
  public static final int MAKE_CODES = 24;
  /** The length of what comes before the texts. */
  public static final int MAKE_FIXED = 34;

  /** Given: the parent is not a handle but the index of a record of this request. */
  public static final int GIVEN_PARENT_INDEX = 1;
  /** Given: the sibling is not a handle but the index of a record of this request. */
  public static final int GIVEN_SIBLING_INDEX = 2;
  /** Given: whether the member is calculated in two passes. */
  public static final int GIVEN_TWO_PASS = 4;
  /** Given: whether variance is reported as for an expense. */
  public static final int GIVEN_EXPENSE = 8;
  /** Given: the code of index {@code i} is given by this bit shifted left by {@code i}. */
  public static final int GIVEN_CODE = 16;

  // ---- What a status is about ----

  /** The member as such. */
  public static final int FIELD_MEMBER = 0;
  /** The name. */
  public static final int FIELD_NAME = 1;
  /** The properties in the member's record. */
  public static final int FIELD_PROPERTIES = 2;
  /** The extended comment. */
  public static final int FIELD_EXTENDED_COMMENT = 3;
  /** The formula. */
  public static final int FIELD_FORMULA = 4;
  /** An alias. */
  public static final int FIELD_ALIAS = 5;
  /** A user-defined attribute. */
  public static final int FIELD_UDA = 6;
  /** An attribute member. */
  public static final int FIELD_ATTRIBUTE = 7;
  /** The place: the member to begin with is no child of the parent. */
  public static final int FIELD_PLACE = 8;

  private OutlineBulk() {}

  /**
   * Carries out the operation that a buffer holds. The position and limit of the buffer are not
   * looked at.
   *
   * @param buffer a direct buffer that can be written
   * @throws IllegalArgumentException if the buffer is not direct, is read-only, or holds no
   *     well-formed request; nothing was done then
   */
  public static void run(ByteBuffer buffer) {
    if (!buffer.isDirect() || buffer.isReadOnly()) {
      throw new IllegalArgumentException(
          "The buffer " + (buffer.isDirect() ? "is read-only" : "is not direct")
              + "; make one with ByteBuffer.allocateDirect");
    }
    if (buffer.capacity() < REQUEST) {
      throw new IllegalArgumentException(
          "The buffer has " + buffer.capacity() + " bytes, the header alone takes " + REQUEST);
    }
    if (!execute(buffer)) {
      throw new IllegalArgumentException("The buffer holds no well-formed request");
    }
  }

  /** False when the request is not well-formed. */
  private static native boolean execute(ByteBuffer buffer);
}
