package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.defs.outline.HoldingBean;

/** The lengths of texts, checked before a call, and their limits in bytes of modified UTF-8. */
final class Texts {
  static final int NAME = 80;
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
    // Most texts are short enough whatever characters they hold.
    int bytes = text.length() * 3L > limit ? HoldingBean.encodedLength(text) : 0;
    if (bytes > limit) {
      String shown = text.length() > 100 ? text.substring(0, 100) + "..." : text;
      throw OutlineException.ofText(member, field, limit,
          "takes " + bytes + " bytes, at most " + limit + " fit; shorten it: " + shown);
    }
    return text;
  }

  /** Gives a text back unless it is empty or longer than its field. */
  static String given(String member, String field, String text, int limit) {
    if (text.isEmpty()) {
      throw OutlineException.ofText(member, field, 0, "is empty; give one");
    }
    return fitting(member, field, text, limit);
  }
}
