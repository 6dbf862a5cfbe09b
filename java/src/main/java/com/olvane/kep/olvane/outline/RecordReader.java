package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.jni.OutlineBulk;
import java.nio.ByteBuffer;
import java.nio.charset.StandardCharsets;

/**
 * Goes through the records that the fast lane has written into a buffer. It copies them out of the
 * buffer first, so that the buffer may be used for the next call at once.
 */
final class RecordReader {
  private byte[] bytes = new byte[0];
  private int count;
  private int record;
  private int at;
  private int next;
  private short[] lastCodes;
  private String lastDimension = "";

  /** Takes over the records of a buffer. */
  void take(ByteBuffer buffer, int start, int records) {
    count = records;
    int end = start;
    for (int i = 0; i < records; i++) {
      end += buffer.getInt(end + OutlineBulk.READ_LENGTH);
    }
    int length = end - start;
    if (bytes.length < length) {
      bytes = new byte[length];
    }
    buffer.position(start);
    buffer.get(bytes, 0, length);
    next = 0;
  }

  /** Steps to the next record; false behind the last one. */
  boolean step() {
    if (count == 0) {
      return false;
    }
    count--;
    record = next;
    next += int32(record + OutlineBulk.READ_LENGTH);
    at = record + OutlineBulk.READ_FIXED;
    return true;
  }

  /** A number of the record; {@code offset} is one of {@code READ_...}. */
  int fixed(int offset) {
    return int32(record + offset);
  }

  /** The codes; members in a row that have the same ones share them. */
  short[] codes() {
    if ((fixed(OutlineBulk.READ_FLAGS) & OutlineBulk.SAME_CODES) == 0) {
      lastCodes = new short[OutlineBulk.CODE_COUNT];
      for (int i = 0; i < lastCodes.length; i++) {
        int offset = record + OutlineBulk.READ_CODES + 2 * i;
        lastCodes[i] = (short) (bytes[offset] & 0xff | bytes[offset + 1] << 8);
      }
    }
    return lastCodes;
  }

  /** The dimension's name; members of one dimension in a row share the string. */
  String dimensionName() {
    if ((fixed(OutlineBulk.READ_FLAGS) & OutlineBulk.SAME_DIMENSION) == 0) {
      String name = text();
      if (!name.equals(lastDimension)) {
        lastDimension = name;
      }
    }
    return lastDimension;
  }

  int number() {
    int number = int32(at);
    at += 4;
    return number;
  }

  /** The next text; empty where there is none. */
  String text() {
    int head = number();
    if (head == OutlineBulk.NO_TEXT) {
      return "";
    }
    int start = at;
    int length = head >>> 1;
    at += length + 1;
    if (length == 0) {
      return "";
    }
    if ((head & 1) == 0) {
      return new String(bytes, start, length, StandardCharsets.ISO_8859_1);
    }
    return ModifiedUtf8.decode(bytes, start, length);
  }

  private int int32(int offset) {
    return bytes[offset] & 0xff
        | (bytes[offset + 1] & 0xff) << 8
        | (bytes[offset + 2] & 0xff) << 16
        | bytes[offset + 3] << 24;
  }
}
