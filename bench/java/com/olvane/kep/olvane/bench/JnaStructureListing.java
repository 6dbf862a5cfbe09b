package com.olvane.kep.olvane.bench;

import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.sun.jna.Library;
import com.sun.jna.Native;
import com.sun.jna.Pointer;
import com.sun.jna.Structure;
import com.sun.jna.ptr.IntByReference;
import com.sun.jna.ptr.PointerByReference;
import java.util.Collection;

/**
 * The outline API bound the way JNA's documentation begins with: an interface for the library and a
 * structure for the record. It is the shortest binding to write.
 */
public final class JnaStructureListing {
  private static final int RECORD_CODE = 65;

  /** The functions of the outline API that a listing needs. */
  public interface Api extends Library {
    /** The bound library. */
    Api INSTANCE = Native.load("olvotl", Api.class);

    int OlvOtlGetChild(int outline, int member, IntByReference child);

    int OlvOtlGetParent(int outline, int member, IntByReference parent);

    int OlvOtlGetNextSibling(int outline, int member, IntByReference next);

    int OlvOtlGetMemberInfo(int outline, int member, PointerByReference info);

    int OlvOtlFreeStructure(int outline, int count, int code, Pointer block);
  }

  /** The record of a member. */
  @Structure.FieldOrder({
    "name", "level", "generation", "consolidation", "twoPass", "expense", "conversionType",
    "currencyMember", "timeBalance", "timeBalanceSkip", "shareOption", "storageType",
    "dimensionCategory", "storageCategory", "comment", "childCount", "dimensionName",
    "isAttributed", "reserved530", "attributeType", "reserved534", "hybridFlag",
    "hybridAnalysisEnabled", "reserved546"
  })
  public static final class MemberInfo extends Structure {
    public byte[] name = new byte[82];
    public short level;
    public short generation;
    public short consolidation;
    public byte twoPass;
    public byte expense;
    public short conversionType;
    public byte[] currencyMember = new byte[82];
    public short timeBalance;
    public short timeBalanceSkip;
    public short shareOption;
    public short storageType;
    public short dimensionCategory;
    public short storageCategory;
    public byte[] comment = new byte[258];
    public int childCount;
    public byte[] dimensionName = new byte[81];
    public byte isAttributed;
    public byte[] reserved530 = new byte[2];
    public short attributeType;
    public byte[] reserved534 = new byte[10];
    public byte hybridFlag;
    public byte hybridAnalysisEnabled;
    public byte[] reserved546 = new byte[10];

    MemberInfo(Pointer record) {
      super(record);
      read();
    }
  }

  private final int outline;

  private JnaStructureListing(int outline) {
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
    JnaStructureListing listing = new JnaStructureListing(outline);
    IntByReference link = new IntByReference();
    check(Api.INSTANCE.OlvOtlGetChild(outline, parent, link));
    while (link.getValue() != 0) {
      int child = link.getValue();
      children.add(listing.read(child));
      check(Api.INSTANCE.OlvOtlGetNextSibling(outline, child, link));
    }
  }

  private int dimensionOf(int member) {
    IntByReference parent = new IntByReference(member);
    int dimension = member;
    while (parent.getValue() != 0) {
      dimension = parent.getValue();
      check(Api.INSTANCE.OlvOtlGetParent(outline, dimension, parent));
    }
    return dimension;
  }

  private DefaultMember read(int handle) {
    PointerByReference block = new PointerByReference();
    check(Api.INSTANCE.OlvOtlGetMemberInfo(outline, handle, block));
    MemberInfo info = new MemberInfo(block.getValue());
    check(Api.INSTANCE.OlvOtlFreeStructure(outline, 1, RECORD_CODE, block.getValue()));
    DefaultMember member = new DefaultMember();
    member.setHoldExceptions(true);
    member.setHandle(handle);
    member.setName(Native.toString(info.name));
    member.setDimensionName(Native.toString(info.dimensionName));
    member.setDimensionHandle(dimensionOf(handle));
    member.setLevel(info.level);
    member.setGeneration(info.generation);
    member.setConsolidation(info.consolidation);
    member.setTwoPassCalculation(info.twoPass != 0);
    member.setCurrencyConversionType(info.conversionType);
    member.setExpenseMember(info.expense != 0);
    if (info.currencyMember[0] != 0) {
      member.setCurrencyMember(Native.toString(info.currencyMember));
    }
    member.setTimeBalanceOption(info.timeBalance);
    member.setTimeBalanceSkipOption(info.timeBalanceSkip);
    member.setShare(info.shareOption);
    member.setDimensionCategory(info.dimensionCategory);
    if (info.comment[0] != 0) {
      member.setComment(Native.toString(info.comment));
    }
    member.setChildCount(info.childCount & 0xFFFFFFFFL);
    member.setAttributed(info.isAttributed != 0);
    member.setAttributeType(info.attributeType);
    member.setHasHybridDescendants(info.hybridFlag != 0);
    member.setHoldExceptions(false);
    return member;
  }

  private static void check(int status) {
    if (status != 0) {
      throw new IllegalStateException("status " + status);
    }
  }
}
