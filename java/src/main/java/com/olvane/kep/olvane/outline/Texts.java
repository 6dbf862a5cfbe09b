package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.defs.outline.HoldingBean;

/** The lengths of texts, checked before a call, and their limits in bytes of modified UTF-8. */
final class Texts {
  static final int NAME = 80;
  static final int ALIAS = 80;
  static final int COMMENT = 257;
  static final int UDA = 80;
  static final int ALIAS_TABLE = 30;

  private Texts() {}

  /** Gives the name of an alias table back unless it is empty or too long. */
  static String aliasTable(String name) {
    return given("", "name of an alias table", name, ALIAS_TABLE);
  }

  /** Gives a text back unless it is longer than its field. */
  static String fitting(String member, String field, String text, int limit) {
    if (text.length() * 3L > limit) {
      int bytes = HoldingBean.encodedLength(text);
      if (bytes > limit) {
        throw OutlineException.tooLong(member, field, bytes, limit, text);
      }
    }
    return text;
  }

  /** Gives a text back unless it is empty or longer than its field. */
  static String given(String member, String field, String text, int limit) {
    if (text.isEmpty()) {
      throw OutlineException.empty(member, field);
    }
    return fitting(member, field, text, limit);
  }
}
