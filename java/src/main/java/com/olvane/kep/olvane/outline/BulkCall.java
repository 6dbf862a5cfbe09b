package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.jni.OutlineBulk;
import java.nio.ByteBuffer;
import java.nio.ByteOrder;
import java.util.Arrays;
import java.util.List;

/**
 * A request to the fast lane, written number by number and text by text, and what the header says
 * after the call.
 */
final class BulkCall {
  static final ByteOrder ORDER = OutlineBulk.ORDER;

  private static final String[] FIELDS = {
    "", "name", "properties", "extended comment", "formula", "alias", "user-defined attribute",
    "attribute member", "place"
  };

  private final Access access;
  private byte[] request = new byte[256];
  private int size;
  private ByteBuffer buffer;

  /** Begins a request. */
  BulkCall(Access access, int operation, List<String> tables) {
    this.access = access;
    size = OutlineBulk.REQUEST;
    put(0, OutlineBulk.VERSION);
    put(OutlineBulk.OPERATION, operation);
    put(OutlineBulk.OUTLINE, access.handle.getValue());
    put(OutlineBulk.INSTANCE, access.instance.getValue());
    number(tables.size());
    for (String table : tables) {
      text(table);
    }
  }

  private void room(int bytes) {
    if (request.length - size < bytes) {
      request = Arrays.copyOf(request, Math.max(2 * request.length, size + bytes));
    }
  }

  /** How many bytes there are so far. */
  int size() {
    return size;
  }

  /** Forgets what was written behind a size. */
  void cutTo(int bytes) {
    size = bytes;
  }

  /** Leaves a place for bytes, which are 0. */
  int gap(int bytes) {
    room(bytes);
    int at = size;
    Arrays.fill(request, at, at + bytes, (byte) 0);
    size += bytes;
    return at;
  }

  void number(int value) {
    put(gap(4), value);
  }

  /** A text, or none where it is null. */
  void text(String text) {
    if (text == null) {
      number(OutlineBulk.NO_TEXT);
      return;
    }
    int head = gap(4);
    room(3 * text.length() + 1);
    int start = size;
    size = ModifiedUtf8.encode(text, request, start);
    int length = size - start;
    // As long in bytes as in characters: all of them are ASCII.
    put(head, 2 * length + (length == text.length() ? 0 : 1));
    gap(1);
  }

  /** Sets a number in a place that was left, or in the header. */
  void put(int at, int value) {
    request[at] = (byte) value;
    request[at + 1] = (byte) (value >> 8);
    request[at + 2] = (byte) (value >> 16);
    request[at + 3] = (byte) (value >> 24);
  }

  void put16(int at, short value) {
    request[at] = (byte) value;
    request[at + 1] = (byte) (value >> 8);
  }

  /** Moves the request into a buffer. */
  void ready() {
    put(OutlineBulk.REQUEST_END, size);
    if (buffer == null || buffer.capacity() < size) {
      release();
      buffer = access.borrow(size);
    }
    buffer.clear();
    buffer.put(request, 0, size);
  }

  /** Changes a number of the header of a request that is ready. */
  void set(int at, int value) {
    buffer.putInt(at, value);
  }

  /** What a number of the header or of the request is now. */
  int get(int at) {
    return buffer.getInt(at);
  }

  /** Makes the call; the outline must have been entered. The buffer grows where a record asks. */
  void run() {
    OutlineBulk.run(buffer);
    for (int needed = get(OutlineBulk.NEEDED); needed != 0; needed = get(OutlineBulk.NEEDED)) {
      if (needed < 0 || needed > Integer.MAX_VALUE - size) {
        throw new OutlineException("read a member of more than two gigabytes", Status.REFUSED,
            access.name(), "");
      }
      ByteBuffer small = buffer;
      buffer = access.borrow(size + needed);
      small.clear().limit(size);
      buffer.clear();
      buffer.put(small);
      access.giveBack(small);
      OutlineBulk.run(buffer);
    }
  }

  int status() {
    return get(OutlineBulk.STATUS);
  }

  /** What the status is about, in words. */
  String field() {
    return FIELDS[get(OutlineBulk.FAILED_FIELD)];
  }

  int count() {
    return get(OutlineBulk.COUNT);
  }

  boolean done() {
    return get(OutlineBulk.DONE) != 0;
  }

  void takeInto(RecordReader records) {
    records.take(buffer, size, count());
  }

  /** Gives the buffer back. */
  void release() {
    if (buffer != null) {
      access.giveBack(buffer);
      buffer = null;
    }
  }
}
