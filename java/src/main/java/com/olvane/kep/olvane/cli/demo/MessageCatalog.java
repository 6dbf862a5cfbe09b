package com.olvane.kep.olvane.cli.demo;

import java.io.IOException;
import java.nio.ByteBuffer;
import java.nio.ByteOrder;
import java.nio.charset.Charset;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.HashMap;
import java.util.Map;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/** The translations of a compiled message catalogue, a {@code .mo} file. */
final class MessageCatalog {
  private static final int MAGIC = 0x950412de;
  private static final int HEADER_BYTES = 20;
  private static final Pattern CHARSET = Pattern.compile("charset=([\\w:.-]+)");

  private final Map<String, String> translations = new HashMap<>();

  private MessageCatalog() {}

  /**
   * Reads a catalogue.
   *
   * @param file the file
   * @return the catalogue
   * @throws IOException if the file cannot be read or is no catalogue
   */
  static MessageCatalog read(Path file) throws IOException {
    ByteBuffer content = ByteBuffer.wrap(Files.readAllBytes(file));
    if (content.limit() < HEADER_BYTES) {
      throw new IOException(file + " is no message catalogue: it is too short");
    }
    // The file is in the byte order of the machine that made it.
    content.order(ByteOrder.LITTLE_ENDIAN);
    if (content.getInt(0) != MAGIC) {
      content.order(ByteOrder.BIG_ENDIAN);
    }
    if (content.getInt(0) != MAGIC) {
      throw new IOException(file + " is no message catalogue: it begins with other bytes");
    }
    MessageCatalog catalog = new MessageCatalog();
    try {
      catalog.fill(content);
    } catch (IndexOutOfBoundsException | NegativeArraySizeException e) {
      throw new IOException(file + " is damaged: a text lies outside the file", e);
    } catch (IllegalArgumentException e) {
      throw new IOException(file + " is in a character set that this Java does not know", e);
    }
    return catalog;
  }

  private void fill(ByteBuffer content) {
    int count = content.getInt(8);
    int originals = content.getInt(12);
    int translated = content.getInt(16);
    Charset charset = StandardCharsets.UTF_8;
    for (int i = 0; i < count; i++) {
      String original = text(content, originals + 8 * i, charset);
      String translation = text(content, translated + 8 * i, charset);
      if (original.isEmpty()) {
        // The translation of the empty text is the catalogue's header; it sorts first.
        Matcher matcher = CHARSET.matcher(translation);
        charset = matcher.find() ? Charset.forName(matcher.group(1)) : charset;
      } else if (!translation.isEmpty()) {
        translations.put(original, translation);
      }
    }
  }

  /** Reads the text that an entry of length and offset points to, up to its first plural form. */
  private static String text(ByteBuffer content, int entry, Charset charset) {
    byte[] bytes = new byte[content.getInt(entry)];
    ByteBuffer view = content.duplicate();
    int offset = content.getInt(entry + 4);
    if (offset < 0 || offset > content.limit() - bytes.length) {
      throw new IndexOutOfBoundsException();
    }
    view.position(offset);
    view.get(bytes);
    String all = new String(bytes, charset);
    int end = all.indexOf('\0');
    return end < 0 ? all : all.substring(0, end);
  }

  /**
   * Translates a text.
   *
   * @param text the original text
   * @return its translation, or null if there is none
   */
  String translate(String text) {
    return translations.get(text);
  }
}
