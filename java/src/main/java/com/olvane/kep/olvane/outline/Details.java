package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.jni.OutlineBulk;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;

/**
 * What is to be read of members besides name and properties, which come always. Immutable: {@code
 * Details.NONE.formula().aliases("Default")}.
 */
public final class Details {
  /** Name and properties only. */
  public static final Details NONE = new Details(0, Collections.<String>emptyList());

  private final int bits;
  private final List<String> tables;

  private Details(int bits, List<String> tables) {
    this.bits = bits;
    this.tables = tables;
  }

  private Details with(int bit) {
    return new Details(bits | bit, tables);
  }

  /** {@return these, and the parent and the previous sibling} */
  public Details place() {
    return with(OutlineBulk.DETAIL_PLACE);
  }

  /** {@return these, and the formula} */
  public Details formula() {
    return with(OutlineBulk.DETAIL_FORMULA);
  }

  /** {@return these, and the extended comment} */
  public Details extendedComment() {
    return with(OutlineBulk.DETAIL_EXTENDED_COMMENT);
  }

  /** {@return these, and the user-defined attributes} */
  public Details udas() {
    return with(OutlineBulk.DETAIL_UDAS);
  }

  /** {@return these, and the associated attribute members} */
  public Details attributes() {
    return with(OutlineBulk.DETAIL_ATTRIBUTES);
  }

  /**
   * Asks for aliases, in place of those asked for before.
   *
   * @param names the names of the alias tables; none for no aliases
   * @return these, and the aliases in these tables
   */
  public Details aliases(String... names) {
    for (String name : names) {
      Texts.aliasTable(name);
    }
    int others = bits & ~OutlineBulk.DETAIL_ALIASES;
    return new Details(
        names.length == 0 ? others : others | OutlineBulk.DETAIL_ALIASES,
        Collections.unmodifiableList(Arrays.asList(names.clone())));
  }

  /** {@return the names of the alias tables asked for} */
  public List<String> aliasTables() {
    return tables;
  }

  int bits() {
    return bits;
  }

  boolean has(int bit) {
    return (bits & bit) != 0;
  }
}
