package com.olvane.kep.olvane.api.jni;

import java.io.BufferedReader;
import java.io.EOFException;
import java.io.IOException;
import java.io.InputStream;
import java.io.InputStreamReader;
import java.nio.ByteBuffer;
import java.nio.ByteOrder;
import java.nio.channels.FileChannel;
import java.nio.charset.StandardCharsets;
import java.nio.file.Path;

/**
 * The versions of the classes and of library files. A library carries its version as an ELF note of
 * the owner {@code kepotl}; it is read without loading the library, so that a stale one never runs.
 */
final class LibraryVersion {
  /** The resource beside the classes that holds their version. */
  static final String RESOURCE = "version.txt";

  private static final String OWNER = "kepotl";
  private static final int NOTE_SEGMENT = 4;
  private static final int LARGEST_NOTES = 1 << 16;

  private LibraryVersion() {}

  /** {@return the version of the classes, or null where they are used without their resources} */
  static String ofClasses() {
    try (InputStream in = LibraryVersion.class.getResourceAsStream(RESOURCE)) {
      return in == null
          ? null
          : new BufferedReader(new InputStreamReader(in, StandardCharsets.UTF_8)).readLine();
    } catch (IOException e) {
      return null;
    }
  }

  /**
   * Refuses a library of another version than the classes'. A file that is no library passes: the
   * virtual machine says better what is wrong with it.
   *
   * @param file the library
   * @param wanted the version of the classes; null accepts any
   * @throws UnsatisfiedLinkError if the version differs or there is none; the message names both
   */
  static void check(Path file, String wanted) {
    if (wanted == null) {
      return;
    }
    String found;
    try {
      found = of(file);
    } catch (IOException e) {
      return;
    }
    if (!wanted.equals(found)) {
      throw new UnsatisfiedLinkError(
          (found == null ? "a stale library without a version" : "version " + found)
              + ", but these classes are version " + wanted
              + ". Use the library and kepotl.jar of one version");
    }
  }

  /**
   * Reads the version of a library file.
   *
   * @param file the library
   * @return its version, or null if it has none
   * @throws IOException if it cannot be read as a library of either width
   */
  static String of(Path file) throws IOException {
    try (FileChannel channel = FileChannel.open(file)) {
      ByteBuffer header = read(channel, 0, 64);
      if (header.getInt(0) != 0x464c457f) {
        throw new IOException("no ELF file");
      }
      boolean wide = header.get(4) == 2;
      long table = wide ? header.getLong(32) : unsigned(header.getInt(28));
      int size = header.getShort(wide ? 54 : 42);
      int count = header.getShort(wide ? 56 : 44);
      for (int i = 0; i < count; i++) {
        ByteBuffer segment = read(channel, table + (long) i * size, wide ? 56 : 32);
        if (segment.getInt(0) == NOTE_SEGMENT) {
          long offset = wide ? segment.getLong(8) : unsigned(segment.getInt(4));
          long length = wide ? segment.getLong(32) : unsigned(segment.getInt(16));
          if (length > LARGEST_NOTES) {
            throw new IOException("notes of an unreasonable length");
          }
          String version = inNotes(read(channel, offset, (int) length));
          if (version != null) {
            return version;
          }
        }
      }
      return null;
    } catch (IllegalArgumentException | IndexOutOfBoundsException e) {
      throw new IOException("a damaged ELF file", e);
    }
  }

  /** Each note: the lengths of owner and content, a type, then both, filled up to four bytes. */
  private static String inNotes(ByteBuffer notes) {
    int at = 0;
    while (at + 12 <= notes.limit()) {
      int owner = notes.getInt(at);
      int content = notes.getInt(at + 4);
      if (owner < 0 || owner > LARGEST_NOTES || content < 0 || content > LARGEST_NOTES) {
        return null;
      }
      int contentAt = at + 12 + filled(owner);
      if (text(notes, at + 12, owner).equals(OWNER)) {
        return text(notes, contentAt, content);
      }
      at = contentAt + filled(content);
    }
    return null;
  }

  private static int filled(int length) {
    return (length + 3) & ~3;
  }

  private static long unsigned(int value) {
    return value & 0xffffffffL;
  }

  /** A text that ends with a zero byte. */
  private static String text(ByteBuffer bytes, int at, int length) {
    byte[] text = new byte[Math.max(0, length - 1)];
    for (int i = 0; i < text.length; i++) {
      text[i] = bytes.get(at + i);
    }
    return new String(text, StandardCharsets.US_ASCII);
  }

  private static ByteBuffer read(FileChannel channel, long offset, int length) throws IOException {
    ByteBuffer bytes = ByteBuffer.allocate(length).order(ByteOrder.LITTLE_ENDIAN);
    while (bytes.hasRemaining()) {
      if (channel.read(bytes, offset + bytes.position()) < 0) {
        throw new EOFException("a library that ends early");
      }
    }
    ((java.nio.Buffer) bytes).flip();
    return bytes;
  }
}
