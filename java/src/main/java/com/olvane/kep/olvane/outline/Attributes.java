package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.InstanceHandle;
import com.olvane.kep.olvane.api.OutlineHandle;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.defs.outline.AttributeDateFormat;
import com.olvane.kep.olvane.defs.outline.AttributeSettings;
import com.olvane.kep.olvane.defs.outline.BucketingType;
import com.olvane.kep.olvane.defs.outline.LongNameConstructor;
import com.olvane.kep.olvane.defs.outline.LongNameDelimiter;
import com.olvane.kep.olvane.defs.outline.LongNameSource;

/**
 * Attribute dimensions, and how attribute members are named and calculated. The associations of
 * members are set with {@link Changes}.
 */
public final class Attributes {
  private final Access access;

  private interface Update {
    int on(InstanceHandle instance, OutlineHandle outline, String name);
  }

  /** A name in the settings. */
  public enum Name {
    /** The member name for true. */
    TRUE("member name for true", OutlineJni::updateBooleanNameTrue),
    /** The member name for false. */
    FALSE("member name for false", OutlineJni::updateBooleanNameFalse),
    /** The name of the attribute calculations dimension. */
    CALCULATIONS("name of the attribute calculations dimension", OutlineJni::updateCalcDimName),
    /** The name of the member for sums. */
    SUM("name of the member for sums", OutlineJni::updateSumMemberName),
    /** The name of the member for counts. */
    COUNT("name of the member for counts", OutlineJni::updateCountMemberName),
    /** The name of the member for averages. */
    AVERAGE("name of the member for averages", OutlineJni::updateAverageMemberName),
    /** The name of the member for minima. */
    MINIMUM("name of the member for minima", OutlineJni::updateMinimumMemberName),
    /** The name of the member for maxima. */
    MAXIMUM("name of the member for maxima", OutlineJni::updateMaximumMemberName);

    private final String words;
    private final Update update;

    Name(String words, Update update) {
      this.words = words;
      this.update = update;
    }

    /** {@return what it is, as a program would show it} */
    public String words() {
      return words;
    }
  }

  Attributes(Access access) {
    this.access = access;
  }

  private void change(String what, Access.Call call) {
    access.edit("change the " + what + " of " + access.name(), call);
  }

  /** {@return the settings as they are now; to change the object changes nothing} */
  public AttributeSettings settings() {
    AttributeSettings settings = new AttributeSettings();
    access.read("read the attribute settings of " + access.name(),
        (i, o) -> OutlineJni.getAttributeSpecsEx(i, o, settings));
    return settings;
  }

  /**
   * Changes a name in the settings.
   *
   * @param which which one
   * @param name the name, 1 to 80 bytes
   */
  public void set(Name which, String name) {
    Texts.given("", which.words, name, Texts.NAME);
    change(which.words, (i, o) -> which.update.on(i, o, name));
  }

  /**
   * Changes how long names are built.
   *
   * @param constructor what they are built of
   * @param source which names are used
   * @param delimiter what stands between them
   */
  public void setLongNames(
      LongNameConstructor constructor, LongNameSource source, LongNameDelimiter delimiter) {
    change("long names", (i, o) -> OutlineJni.updateLongnameConstructor(i, o, constructor));
    change("long names", (i, o) -> OutlineJni.updateLongnameSource(i, o, source));
    change("long names", (i, o) -> OutlineJni.updateLongnameDelimiter(i, o, delimiter));
  }

  /**
   * Changes the date format.
   *
   * @param format the format
   */
  public void setDateFormat(AttributeDateFormat format) {
    change("date format", (i, o) -> OutlineJni.updateDateFormat(i, o, format));
  }

  /**
   * Changes how numeric members bound their ranges.
   *
   * @param type the bounds
   */
  public void setRanges(BucketingType type) {
    change("attribute ranges", (i, o) -> OutlineJni.updateBucketingType(i, o, type));
  }

  /**
   * Associates an attribute dimension with a base dimension.
   *
   * @param base the base dimension
   * @param attribute the attribute dimension
   */
  public void associate(Member base, Member attribute) {
    access.edit("associate " + attribute + " with", base.name(),
        (i, o) -> OutlineJni.assignAttributeDimension(i, o, base.handle(), attribute.handle()));
  }

  /**
   * Removes that association, and with it those of the members.
   *
   * @param base the base dimension
   * @param attribute the attribute dimension
   */
  public void dissociate(Member base, Member attribute) {
    access.edit("remove the association of " + attribute + " with", base.name(),
        (i, o) -> OutlineJni.unassignAttributeDimension(i, o, base.handle(), attribute.name()));
  }
}
