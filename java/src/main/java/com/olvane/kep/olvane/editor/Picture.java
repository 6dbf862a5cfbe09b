package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Attribute;
import com.olvane.kep.olvane.outline.Member;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Set;
import java.util.stream.IntStream;

/**
 * The shape of an outline in a few bytes a member, and its layout as an icicle: columns from left
 * to right, each member a block as high as its share of the outline. Filled on the work thread and
 * then only read. Members are told by their place in pre-order.
 */
final class Picture {
  /** Blocks that would be lower are merged with their neighbours. */
  private static final double LEAST = 1.5;

  /** A member, or siblings one behind the other that are too small to be seen. */
  static final class Block {
    /** The member, or the first of the siblings. */
    final int first;
    final int column;
    final double start;
    int siblings;
    /** The member behind all that are below this block. */
    int end;
    double length;
    /** What tells its colour. */
    byte key;
    /** The name of the member; empty for siblings. */
    String name = "";

    Block(int first, int column, double start) {
      this.first = first;
      this.column = column;
      this.start = start;
    }
  }

  /** The number of members; and of each, beyond which there are only places to spare: */
  int count;
  int[] handles = new int[1024];
  /** The parents, -1 for a dimension. */
  int[] parents = new int[1024];
  /** The number of members of each subtree, when all have been added. */
  int[] sizes = {};
  private int[] leaves = {};
  private byte[] keys = new byte[1024];
  /** The attribute dimension that gives the colours, null for none, and what it gives. */
  final String attribute;
  final List<String> attributes = new ArrayList<>();
  final List<String> attributeDimensions = new ArrayList<>();
  /** The number of members with findings, -1 where findings do not give the colours. */
  int marked = -1;
  /** The last member so far of each generation. */
  private int[] path = new int[16];

  /** Begins a picture; {@code attribute} is the dimension that gives the colours, or null. */
  Picture(String attribute) {
    this.attribute = attribute;
  }

  /** Adds the next member in pre-order, read with its attributes where they give the colours. */
  void add(Member member) {
    if (count == handles.length) {
      handles = Arrays.copyOf(handles, 2 * count);
      parents = Arrays.copyOf(parents, 2 * count);
      keys = Arrays.copyOf(keys, 2 * count);
    }
    int generation = member.generation();
    if (generation >= path.length) {
      path = Arrays.copyOf(path, 2 * generation);
    }
    path[generation] = count;
    parents[count] = generation <= 1 ? -1 : path[generation - 1];
    keys[count] = (byte) (attribute == null || member.isDimension() ? 0 : number(member));
    handles[count++] = member.handle();
  }

  private int number(Member member) {
    for (Attribute one : member.attributes()) {
      if (one.dimension().equals(attribute)) {
        if (!attributes.contains(one.name()) && attributes.size() < Byte.MAX_VALUE - 1) {
          attributes.add(one.name());
        }
        return 1 + attributes.indexOf(one.name());
      }
    }
    return 0;
  }

  /** Measures the subtrees, when all members have been added. */
  void finish() {
    sizes = new int[count];
    leaves = new int[count];
    for (int i = count - 1; i >= 0; i--) {
      sizes[i]++;
      leaves[i] = Math.max(1, leaves[i]);
      if (parents[i] >= 0) {
        sizes[parents[i]] += sizes[i];
        leaves[parents[i]] += leaves[i];
      }
    }
  }

  /** Makes members stand out whose handles are marked with 2, and with 1 what they are below. */
  void mark(Set<Integer> found) {
    marked = 0;
    for (int i = count - 1; i >= 0; i--) {
      if (found.contains(handles[i])) {
        keys[i] = 2;
        marked++;
      }
      if (parents[i] >= 0 && keys[i] > 0) {
        keys[parents[i]] = (byte) Math.max(1, keys[parents[i]]);
      }
    }
  }

  /** The place of a member, -1 where there is none of this handle. */
  int find(int handle) {
    return IntStream.range(0, count).filter(i -> handles[i] == handle).findFirst().orElse(-1);
  }

  /**
   * Lays out a subtree, or with -1 the whole outline.
   *
   * @param height the height of it all
   * @param byLeaves whether leaves count, and not all members
   * @param columns the number of generations that are drawn
   * @return the blocks, parents before their children
   */
  List<Block> layOut(int root, double height, boolean byLeaves, int columns) {
    List<Block> blocks = new ArrayList<>();
    int[] weights = byLeaves ? leaves : sizes;
    int begin = Math.max(root, 0);
    int end = root < 0 ? count : root + sizes[root];
    long all = 0;
    for (int i = begin; i < end; i += sizes[i]) {
      all += weights[i];
    }
    if (all > 0) {
      place(blocks, weights, height / all, begin, end, 0, 0, columns);
    }
    return blocks;
  }

  private void place(List<Block> blocks, int[] weights, double unit, int begin, int end,
      int column, double start, int columns) {
    Block run = null;
    double at = start;
    for (int i = begin; i < end; i += sizes[i]) {
      double length = weights[i] * unit;
      if (run == null || length >= LEAST) {
        run = new Block(i, column, at);
        blocks.add(run);
      }
      run.siblings++;
      run.end = i + sizes[i];
      run.length += length;
      run.key = (byte) Math.max(run.key, keys[i]);
      if (length >= LEAST && column + 1 < columns && sizes[i] > 1) {
        place(blocks, weights, unit, i + 1, i + sizes[i], column + 1, at, columns);
      }
      if (run.length >= LEAST) {
        run = null;
      }
      at += length;
    }
  }
}
