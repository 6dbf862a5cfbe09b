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

  /** How many records are still to come. */
  int left() {
    return count;
  }

  int handle() {
    return int32(record + OutlineBulk.READ_HANDLE);
  }

  int dimensionHandle() {
    return int32(record + OutlineBulk.READ_DIMENSION);
  }

  int parent() {
    return int32(record + OutlineBulk.READ_PARENT);
  }

  int previous() {
    return int32(record + OutlineBulk.READ_PREVIOUS);
  }

  int childCount() {
    return int32(record + OutlineBulk.READ_CHILD_COUNT);
  }

  int flags() {
    return int32(record + OutlineBulk.READ_FLAGS);
  }

  short code(int index) {
    int offset = record + OutlineBulk.READ_CODES + 2 * index;
    return (short) (bytes[offset] & 0xff | bytes[offset + 1] << 8);
  }

  /** The dimension's name; members of one dimension in a row share the string. */
  String dimensionName() {
    if ((flags() & OutlineBulk.SAME_DIMENSION) == 0) {
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
