package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NewMember;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Share;
import java.io.BufferedInputStream;
import java.io.BufferedOutputStream;
import java.io.ByteArrayInputStream;
import java.io.ByteArrayOutputStream;
import java.io.DataInputStream;
import java.io.DataOutputStream;
import java.io.IOException;
import java.io.UncheckedIOException;
import java.util.Collections;
import java.util.Iterator;
import java.util.LinkedHashMap;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Locale;
import java.util.Map;
import java.util.NoSuchElementException;
import java.util.Set;
import java.util.zip.Deflater;
import java.util.zip.DeflaterOutputStream;
import java.util.zip.InflaterInputStream;

/**
 * The members of a subtree with all their details in pre-order, compressed: a million members that
 * were deleted may lie in the history.
 */
final class PackedMembers {
  private static final int BUFFER = 1 << 16;

  private final List<MemberParts.Part> parts;
  private final ByteArrayOutputStream bytes = new ByteArrayOutputStream();
  private final Deflater deflater = new Deflater(Deflater.BEST_SPEED);
  private DataOutputStream out = new DataOutputStream(
      new BufferedOutputStream(new DeflaterOutputStream(bytes, deflater, BUFFER), BUFFER));
  private byte[] packed;

  PackedMembers(List<String> tables) {
    parts = MemberParts.all(tables);
  }

  /** Adds a member that was read with all details. */
  void add(Member member) {
    try {
      out.writeShort(member.generation());
      write(member.name());
      out.writeBoolean(member.share() == Share.SHARED);
      for (MemberParts.Part part : parts) {
        write(part.read.apply(member));
      }
      writeAll(member.udas());
      // Those of a dimension are dimensions and are associated in another way.
      writeAll(member.isDimension()
          ? Collections.<String>emptyList() : MemberParts.attributes(member));
    } catch (IOException e) {
      throw new UncheckedIOException(e);
    }
  }

  private void write(String text) throws IOException {
    out.writeInt(text.length());
    out.writeChars(text);
  }

  private void writeAll(List<String> texts) throws IOException {
    out.writeInt(texts.size());
    for (String text : texts) {
      write(text);
    }
  }

  /** Ends adding. */
  void finish() {
    try {
      out.writeShort(0);
      out.close();
    } catch (IOException e) {
      throw new UncheckedIOException(e);
    }
    deflater.end();
    packed = bytes.toByteArray();
    bytes.reset();
    out = null;
  }

  /** Reads the members as what is to be made. */
  Reader reader(Outline outline) {
    return new Reader(outline);
  }

  /** Hands the members out in pre-order, each once. */
  final class Reader {
    /** So many names may wait in a request before the outline has them. */
    private static final int NAMES_ON_THE_WAY = 4096;

    private final Outline outline;
    private final DataInputStream in = new DataInputStream(new BufferedInputStream(
        new InflaterInputStream(new ByteArrayInputStream(packed)), BUFFER));
    private final Map<Integer, String> late = new LinkedHashMap<>();
    private final Set<String> onTheWay = new LinkedHashSet<>();
    /** The generation of the member that comes next; that of the root. */
    private int generation;
    private int rootGeneration;
    private int count;

    private Reader(Outline outline) {
      this.outline = outline;
    }

    /** The root, with all below it or, for {@link #children} to come, without. */
    NewMember root(boolean withChildren) {
      try {
        generation = in.readUnsignedShort();
        rootGeneration = generation;
      } catch (IOException e) {
        throw new UncheckedIOException(e);
      }
      NewMember root = next();
      return withChildren ? root : root.below(Collections.<NewMember>emptyList());
    }

    Iterable<NewMember> children() {
      return below(rootGeneration);
    }

    /**
     * The members whose names others had at the time, such as shared ones: they were given out
     * under other names and are to be renamed.
     */
    Map<Integer, String> namesTakenLate() {
      return late;
    }

    private Iterable<NewMember> below(int parent) {
      return () -> new Iterator<NewMember>() {
        @Override
        public boolean hasNext() {
          return generation == parent + 1;
        }

        @Override
        public NewMember next() {
          if (!hasNext()) {
            throw new NoSuchElementException();
          }
          return Reader.this.next();
        }
      };
    }

    private NewMember next() {
      try {
        int own = generation;
        String name = text();
        Changes changes = new Changes();
        boolean shared = in.readBoolean();
        for (MemberParts.Part part : parts) {
          // A new member has no texts to begin with.
          part.set(changes, "", text());
        }
        for (int left = in.readInt(); left > 0; left--) {
          changes.uda(text());
        }
        for (int left = in.readInt(); left > 0; left--) {
          changes.attribute(text());
        }
        NewMember member = new NewMember(free(name, shared), changes).below(below(own));
        count++;
        generation = in.readUnsignedShort();
        return member;
      } catch (IOException e) {
        throw new UncheckedIOException(e);
      }
    }

    private String free(String name, boolean shared) {
      String folded = name.toLowerCase(Locale.ROOT);
      if (!shared && !onTheWay.contains(folded) && !outline.find(name).isPresent()) {
        onTheWay.add(folded);
        if (onTheWay.size() > NAMES_ON_THE_WAY) {
          onTheWay.remove(onTheWay.iterator().next());
        }
        return name;
      }
      late.put(count, name);
      int number = count;
      while (outline.find("\u2026 " + number).isPresent()) {
        number += 1_000_003;
      }
      return "\u2026 " + number;
    }

    private String text() throws IOException {
      char[] text = new char[in.readInt()];
      for (int i = 0; i < text.length; i++) {
        text[i] = in.readChar();
      }
      return new String(text);
    }
  }
}
