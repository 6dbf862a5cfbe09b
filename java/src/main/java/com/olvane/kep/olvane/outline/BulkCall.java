package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.InstanceHandle;
import com.olvane.kep.olvane.api.OutlineHandle;
import com.olvane.kep.olvane.api.jni.OutlineBulk;
import java.nio.ByteBuffer;
import java.util.List;

/**
 * A request to the fast lane, written number by number and text by text, and what the header says
 * after the call.
 */
final class BulkCall implements Access.Call, AutoCloseable {
  private static final byte[] ZEROS = new byte[OutlineBulk.REQUEST];
  private static final String[] FIELDS = {
    "", "name", "properties", "extended comment", "formula", "alias", "user-defined attribute",
    "attribute member", "place"
  };

  private final Access access;
  private ByteBuffer buffer;
  private int size;
  /** The edits when the call was first made; -1 before. */
  private long edits = -1;

  /** Begins a request. */
  BulkCall(Access access, int operation, List<String> tables) {
    this.access = access;
    buffer = access.borrow(OutlineBulk.REQUEST);
    gap(OutlineBulk.REQUEST);
    put(0, OutlineBulk.VERSION);
    put(OutlineBulk.OPERATION, operation);
    put(OutlineBulk.OUTLINE, access.handle.getValue());
    put(OutlineBulk.INSTANCE, access.login.instance.getValue());
    texts(tables);
  }

  /** Sees to it that there is room behind the request. */
  private void room(int bytes) {
    if (bytes < 0 || bytes > Integer.MAX_VALUE - size) {
      throw new OutlineException(
          "read or write a member of more than two gigabytes", Status.REFUSED, "", "");
    }
    if (buffer.capacity() - size < bytes) {
      ByteBuffer small = buffer;
      buffer = access.borrow(Math.max(2 * small.capacity(), size + bytes));
      small.clear().limit(size);
      buffer.put(small);
      access.giveBack(small);
    }
  }

  /** How many bytes there are so far. */
  int size() {
    return size;
  }

  /** Leaves a place for bytes, which are 0. */
  int gap(int bytes) {
    room(bytes);
    int at = size;
    buffer.position(at);
    buffer.put(ZEROS, 0, bytes);
    size += bytes;
    return at;
  }

  void number(int value) {
    room(Integer.BYTES);
    put(size, value);
    size += Integer.BYTES;
  }

  /** A text, or none where it is null. */
  void text(String text) {
    if (text == null) {
      number(OutlineBulk.NO_TEXT);
      return;
    }
    byte[] bytes = ModifiedUtf8.encode(text);
    // As long in bytes as in characters: all of them are ASCII.
    number(2 * bytes.length + (bytes.length == text.length() ? 0 : 1));
    room(bytes.length + 1);
    buffer.position(size);
    buffer.put(bytes).put((byte) 0);
    size = buffer.position();
  }

  /** The number of texts and each of them. */
  void texts(List<String> texts) {
    number(texts.size());
    for (String text : texts) {
      text(text);
    }
  }

  /** Sets a number in a place that was left, or in the header. */
  void put(int at, int value) {
    buffer.putInt(at, value);
  }

  void put16(int at, short value) {
    buffer.putShort(at, value);
  }

  /** What a number of the header or of the request is now. */
  int get(int at) {
    return buffer.getInt(at);
  }

  /** Makes the call, or goes on with it. The buffer grows where a record asks. */
  @Override
  public int on(InstanceHandle i, OutlineHandle o) {
    edits = access.unchanged(edits);
    put(OutlineBulk.REQUEST_END, size);
    int needed = 0;
    do {
      room(needed);
      OutlineBulk.run(buffer);
      needed = get(OutlineBulk.NEEDED);
    } while (needed != 0);
    return get(OutlineBulk.STATUS);
  }

  @Override
  public String field() {
    return FIELDS[get(OutlineBulk.FAILED_FIELD)];
  }

  int count() {
    return get(OutlineBulk.COUNT);
  }

  void takeInto(RecordReader records) {
    records.take(buffer, size, count());
  }

  /** Gives the buffer back; nothing can be asked any more. */
  @Override
  public void close() {
    if (buffer != null) {
      access.giveBack(buffer);
      buffer = null;
    }
  }
}
