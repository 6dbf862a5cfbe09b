package com.olvane.kep.olvane.defs.outline;

import java.util.ArrayList;
import java.util.List;

/** The sentences of the error bits that the embedded engine's verification reports. */
final class VerifyErrorText {
  private static final String[] OUTLINE = {
    "has no dimension but attribute dimensions",
    "has more than one time dimension",
    "has more than one accounts dimension",
    "has more than one country dimension",
    "has two alias tables of one name",
  };

  private static final String[] MEMBER = {
    "has an empty name",
    "has a name that is longer than 80 bytes",
    "has a name that begins with a character that formulas read as syntax",
    "has a name that contains a double quote, tab or line end",
    "has the same name as an earlier sibling",
    "has the name of a member elsewhere in the outline and is not marked as shared",
    "is marked as shared but its dimension has no unshared member of that name",
    "is marked as shared but has children",
    "belongs to an attribute dimension but has a formula",
    "is label only but has no children",
    "is an attribute dimension that no base dimension is associated with",
    "is a further time dimension",
    "is a further accounts dimension",
    "is a further country dimension",
  };

  private static final String[] MEMBER_EXTENDED = {
    "has an alias that another member has in the same table",
    "has an alias that is another member's name",
    "has an alias that begins with a character that formulas read as syntax",
    "names a generation or level twice, or like a member",
    "enables a dynamic time series on a generation that it does not have",
    "has more generations below it than can be told",
  };

  private VerifyErrorText() {}

  static List<String> ofOutline(long bits) {
    List<String> sentences = new ArrayList<>();
    add(sentences, "The outline ", bits, OUTLINE);
    return sentences;
  }

  static List<String> ofMember(String name, long bits, long extendedBits) {
    List<String> sentences = new ArrayList<>();
    String subject = name == null ? "A member " : "Member " + name + " ";
    add(sentences, subject, bits, MEMBER);
    add(sentences, subject, extendedBits, MEMBER_EXTENDED);
    return sentences;
  }

  private static void add(List<String> sentences, String subject, long bits, String[] texts) {
    for (int bit = 0; bit < Long.SIZE; bit++) {
      if ((bits >>> bit & 1) != 0) {
        String text = bit < texts.length ? texts[bit] : "has the error of bit " + bit;
        sentences.add(subject + text + ".");
      }
    }
  }
}
