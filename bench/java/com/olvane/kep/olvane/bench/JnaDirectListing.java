package com.olvane.kep.olvane.bench;

import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.sun.jna.Native;
import com.sun.jna.Pointer;
import com.sun.jna.ptr.IntByReference;
import com.sun.jna.ptr.PointerByReference;
import java.nio.ByteBuffer;
import java.nio.ByteOrder;
import java.nio.charset.StandardCharsets;
import java.util.Collection;

/**
 * What a Java client would do without the native half: it binds the outline API through JNA, walks
 * the outline itself and fills the member objects in Java. Direct mapping and one read per record
 * are the fastest that JNA offers.
 */
public final class JnaDirectListing {
  private static final int RECORD_SIZE = 556;
  private static final int RECORD_CODE = 65;

  /** The functions of the outline API that a listing needs. */
  private static final class Api {
    static {
      Native.register(Api.class, "olvotl");
    }

    static native int OlvOtlGetChild(int outline, int member, IntByReference child);

    static native int OlvOtlGetParent(int outline, int member, IntByReference parent);

    static native int OlvOtlGetNextSibling(int outline, int member, IntByReference next);

    static native int OlvOtlGetMemberInfo(int outline, int member, PointerByReference info);

    static native int OlvOtlFreeStructure(int outline, int count, int code, Pointer block);
  }

  private final int outline;
  private final IntByReference link = new IntByReference();
  private final PointerByReference block = new PointerByReference();

  private JnaDirectListing(int outline) {
    this.outline = outline;
  }

  /**
   * Lists the children of a member as member objects.
   *
   * @param outline the handle of the open outline
   * @param parent the handle of the member
   * @param children receives the children
   */
  public static void list(int outline, int parent, Collection<DefaultMember> children) {
    JnaDirectListing listing = new JnaDirectListing(outline);
    int child = listing.follow(Api.OlvOtlGetChild(outline, parent, listing.link));
    while (child != 0) {
      children.add(listing.read(child));
      child = listing.follow(Api.OlvOtlGetNextSibling(outline, child, listing.link));
    }
  }

  private int follow(int status) {
    check(status);
    return link.getValue();
  }

  private int dimensionOf(int member) {
    int current = member;
    int parent = follow(Api.OlvOtlGetParent(outline, current, link));
    while (parent != 0) {
      current = parent;
      parent = follow(Api.OlvOtlGetParent(outline, current, link));
    }
    return current;
  }

  private DefaultMember read(int handle) {
    check(Api.OlvOtlGetMemberInfo(outline, handle, block));
    Pointer info = block.getValue();
    byte[] bytes = info.getByteArray(0, RECORD_SIZE);
    check(Api.OlvOtlFreeStructure(outline, 1, RECORD_CODE, info));
    ByteBuffer record = ByteBuffer.wrap(bytes).order(ByteOrder.LITTLE_ENDIAN);
    DefaultMember member = new DefaultMember();
    member.setHoldExceptions(true);
    member.setHandle(handle);
    member.setName(text(bytes, 0));
    member.setDimensionName(text(bytes, 448));
    member.setDimensionHandle(dimensionOf(handle));
    member.setLevel(record.getShort(82));
    member.setGeneration(record.getShort(84));
    member.setConsolidation(record.getShort(86));
    member.setTwoPassCalculation(bytes[88] != 0);
    member.setCurrencyConversionType(record.getShort(90));
    member.setExpenseMember(bytes[89] != 0);
    if (bytes[92] != 0) {
      member.setCurrencyMember(text(bytes, 92));
    }
    member.setTimeBalanceOption(record.getShort(174));
    member.setTimeBalanceSkipOption(record.getShort(176));
    member.setShare(record.getShort(178));
    member.setDimensionCategory(record.getShort(182));
    if (bytes[186] != 0) {
      member.setComment(text(bytes, 186));
    }
    member.setChildCount(record.getInt(444) & 0xFFFFFFFFL);
    member.setAttributed(bytes[529] != 0);
    member.setAttributeType(record.getShort(532));
    member.setHasHybridDescendants(bytes[544] != 0);
    member.setHoldExceptions(false);
    return member;
  }

  private static String text(byte[] bytes, int start) {
    int end = start;
    while (bytes[end] != 0) {
      end++;
    }
    return new String(bytes, start, end - start, StandardCharsets.UTF_8);
  }

  private static void check(int status) {
    if (status != 0) {
      throw new IllegalStateException("status " + status);
    }
  }
}
