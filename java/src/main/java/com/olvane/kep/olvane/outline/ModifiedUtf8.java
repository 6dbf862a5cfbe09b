package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.defs.outline.HoldingBean;
import java.nio.charset.StandardCharsets;

/**
 * The encoding of texts in an outline: UTF-8 in which a zero takes two bytes and a supplementary
 * character, as two surrogates, six.
 */
final class ModifiedUtf8 {
  private static final char REPLACEMENT = '\uFFFD';

  private ModifiedUtf8() {}

  /** Decodes any bytes; what is not well-formed becomes replacement characters. */
  static String decode(byte[] bytes, int start, int length) {
    char[] chars = new char[length];
    int count = 0;
    int end = start + length;
    for (int i = start; i < end; ) {
      int first = bytes[i++];
      if (first >= 0) {
        chars[count++] = (char) first;
      } else if ((first & 0xe0) == 0xc0 && follows(bytes, i, end)) {
        chars[count++] = (char) ((first & 0x1f) << 6 | bytes[i++] & 0x3f);
      } else if ((first & 0xf0) == 0xe0 && follows(bytes, i, end) && follows(bytes, i + 1, end)) {
        chars[count++] =
            (char) ((first & 0x0f) << 12 | (bytes[i] & 0x3f) << 6 | bytes[i + 1] & 0x3f);
        i += 2;
      } else {
        chars[count++] = REPLACEMENT;
      }
    }
    return new String(chars, 0, count);
  }

  private static boolean follows(byte[] bytes, int at, int end) {
    return at < end && (bytes[at] & 0xc0) == 0x80;
  }

  /** Encodes a text. */
  static byte[] encode(String text) {
    int length = HoldingBean.encodedLength(text);
    if (length == text.length()) {
      // All of it is ASCII.
      return text.getBytes(StandardCharsets.ISO_8859_1);
    }
    byte[] bytes = new byte[length];
    int at = 0;
    for (int i = 0; i < text.length(); i++) {
      char c = text.charAt(i);
      if (c != 0 && c < 0x80) {
        bytes[at++] = (byte) c;
      } else if (c < 0x800) {
        bytes[at++] = (byte) (0xc0 | c >> 6);
        bytes[at++] = (byte) (0x80 | c & 0x3f);
      } else {
        bytes[at++] = (byte) (0xe0 | c >> 12);
        bytes[at++] = (byte) (0x80 | c >> 6 & 0x3f);
        bytes[at++] = (byte) (0x80 | c & 0x3f);
      }
    }
    return bytes;
  }
}
