package com.olvane.kep.olvane.editor;

import java.io.BufferedInputStream;
import java.io.BufferedOutputStream;
import java.io.ByteArrayInputStream;
import java.io.ByteArrayOutputStream;
import java.io.DataInputStream;
import java.io.DataOutputStream;
import java.io.IOException;
import java.io.UncheckedIOException;
import java.util.ArrayList;
import java.util.List;
import java.util.function.Supplier;
import java.util.zip.Deflater;
import java.util.zip.DeflaterOutputStream;
import java.util.zip.InflaterInputStream;

/** Rows of texts, compressed: a million members that were deleted may lie in the history. */
final class PackedTexts {
  private static final int BUFFER = 1 << 16;

  private final ByteArrayOutputStream bytes = new ByteArrayOutputStream();
  private final Deflater deflater = new Deflater(Deflater.BEST_SPEED);
  private DataOutputStream out = new DataOutputStream(
      new BufferedOutputStream(new DeflaterOutputStream(bytes, deflater, BUFFER), BUFFER));

  void add(List<String> row) {
    try {
      out.writeInt(row.size());
      for (String text : row) {
        out.writeInt(text.length());
        out.writeChars(text);
      }
    } catch (IOException e) {
      throw new UncheckedIOException(e);
    }
  }

  /** Ends adding. */
  void finish() {
    try {
      out.writeInt(0);
      out.close();
      deflater.end();
      // With its buffers, which are larger than what most have in them.
      out = null;
    } catch (IOException e) {
      throw new UncheckedIOException(e);
    }
  }

  /** Gives the rows one after the other, and then empty ones. */
  Supplier<List<String>> rows() {
    DataInputStream in = new DataInputStream(new BufferedInputStream(
        new InflaterInputStream(new ByteArrayInputStream(bytes.toByteArray())), BUFFER));
    return () -> {
      try {
        List<String> row = new ArrayList<>();
        for (int left = in.readInt(); left > 0; left--) {
          StringBuilder text = new StringBuilder();
          for (int length = in.readInt(); length > 0; length--) {
            text.append(in.readChar());
          }
          row.add(text.toString());
        }
        return row;
      } catch (IOException e) {
        throw new UncheckedIOException(e);
      }
    };
  }
}
