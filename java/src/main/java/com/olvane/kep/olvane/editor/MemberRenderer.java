package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Consolidation;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Share;
import java.awt.Color;
import java.awt.Component;
import java.awt.Dimension;
import java.awt.Font;
import java.awt.FontMetrics;
import java.awt.Graphics;
import java.awt.Graphics2D;
import java.awt.RenderingHints;
import java.text.NumberFormat;
import java.util.ArrayList;
import java.util.List;
import javax.swing.JLabel;
import javax.swing.JTree;
import javax.swing.tree.TreeCellRenderer;

/**
 * Draws a member as one line: consolidation sign, name, alias, marks for formula and attributes,
 * number of children.
 */
final class MemberRenderer extends JLabel implements TreeCellRenderer {
  private static final long serialVersionUID = 1;
  private static final int GAP = 8;

  /** A piece of the line. */
  private static final class Piece {
    final String text;
    final Color color;
    final Font font;
    final boolean framed;

    Piece(String text, Color color, Font font, boolean framed) {
      this.text = text;
      this.color = color;
      this.font = font;
      this.framed = framed;
    }
  }

  private final OutlineTree tree;
  private final transient List<Piece> pieces = new ArrayList<>();
  private final NumberFormat numbers = NumberFormat.getIntegerInstance();
  private boolean selected;
  private boolean focused;
  private boolean dropTarget;

  MemberRenderer(OutlineTree tree) {
    this.tree = tree;
  }

  @Override
  public Component getTreeCellRendererComponent(JTree shown, Object value, boolean isSelected,
      boolean expanded, boolean leaf, int row, boolean hasFocus) {
    selected = isSelected;
    focused = hasFocus;
    JTree.DropLocation drop = shown.getDropLocation();
    dropTarget = drop != null && drop.getChildIndex() < 0 && drop.getPath() != null
        && drop.getPath().getLastPathComponent() == value;
    setFont(shown.getFont());
    setComponentOrientation(shown.getComponentOrientation());
    pieces.clear();
    Member member = ((MemberNode) value).member;
    Palette palette = Theme.palette();
    if (member == null) {
      pieces.add(new Piece("\u2026", palette.faint, getFont(), false));
    } else {
      collect(member, palette);
    }
    getAccessibleContext().setAccessibleName(member == null ? "being read" : member.name());
    getAccessibleContext().setAccessibleDescription(member == null ? "" : description(member));
    return this;
  }

  private void collect(Member member, Palette palette) {
    Font plain = getFont();
    Font small = plain.deriveFont(plain.getSize2D() * 0.85f);
    boolean cut = Clip.isCut(member);
    Color text = cut ? palette.faint : palette.text;
    if (!member.isDimension() && member.share() != Share.ATTRIBUTE) {
      pieces.add(new Piece(String.valueOf(member.consolidation().sign()),
          member.consolidation() == Consolidation.ADD ? palette.faint : palette.accent,
          plain.deriveFont(Font.BOLD), false));
    }
    pieces.add(new Piece(member.name(), text,
        member.isDimension() ? plain.deriveFont(Font.BOLD)
            : member.share() == Share.SHARED ? plain.deriveFont(Font.ITALIC) : plain, false));
    String table = tree.aliasTable();
    if (!table.isEmpty() && member.details().aliasTables().contains(table)
        && !member.alias(table).isEmpty()) {
      pieces.add(new Piece(member.alias(table), palette.faint, plain, false));
    }
    if (!member.formula().isEmpty()) {
      pieces.add(new Piece("fx", palette.good, small.deriveFont(Font.ITALIC), true));
    }
    if (!member.attributes().isEmpty()) {
      pieces.add(new Piece("A", palette.warning, small, true));
    }
    if (member.share() == Share.SHARED) {
      pieces.add(new Piece("shared", palette.faint, small, true));
    } else if (member.share() == Share.LABEL_ONLY) {
      pieces.add(new Piece("label", palette.faint, small, true));
    }
    if (member.hasChildren()) {
      pieces.add(new Piece(numbers.format(member.childCount()), palette.faint, small, false));
    }
  }

  /** What the marks mean, in words. */
  String description(Member member) {
    List<String> words = new ArrayList<>();
    if (!member.isDimension()) {
      words.add(member.consolidation().words());
    }
    if (member.share() != Share.STORED && member.share() != Share.ATTRIBUTE) {
      words.add(member.share().words());
    }
    if (!member.formula().isEmpty()) {
      words.add("has a formula");
    }
    if (!member.attributes().isEmpty()) {
      words.add(member.attributes().toString());
    }
    if (member.hasChildren()) {
      words.add(numbers.format(member.childCount())
          + (member.childCount() == 1 ? " child" : " children"));
    }
    return String.join(", ", words);
  }

  @Override
  public Dimension getPreferredSize() {
    int width = GAP;
    for (Piece piece : pieces) {
      width += getFontMetrics(piece.font).stringWidth(piece.text) + GAP;
    }
    return new Dimension(width, tree.getRowHeight());
  }

  @Override
  protected void paintComponent(Graphics graphics) {
    Graphics2D g = (Graphics2D) graphics.create();
    g.setRenderingHint(RenderingHints.KEY_ANTIALIASING, RenderingHints.VALUE_ANTIALIAS_ON);
    Theme.smoothText(g);
    Palette palette = Theme.palette();
    if (selected || dropTarget) {
      g.setColor(dropTarget || tree.isFocusOwner() ? palette.selection : palette.hover);
      g.fillRoundRect(0, 1, getWidth(), getHeight() - 2, 6, 6);
    }
    if (focused && tree.isFocusOwner()) {
      g.setColor(palette.accent);
      g.drawRoundRect(0, 1, getWidth() - 1, getHeight() - 3, 6, 6);
    }
    FontMetrics line = g.getFontMetrics(getFont());
    int baseline = (getHeight() - line.getHeight()) / 2 + line.getAscent();
    int x = GAP / 2;
    for (Piece piece : pieces) {
      FontMetrics metrics = g.getFontMetrics(piece.font);
      int width = metrics.stringWidth(piece.text);
      g.setFont(piece.font);
      g.setColor(piece.color);
      if (piece.framed) {
        g.drawRoundRect(x - 3, baseline - metrics.getAscent(), width + 6,
            metrics.getAscent() + metrics.getDescent(), 6, 6);
      }
      g.drawString(piece.text, x, baseline);
      x += width + GAP;
    }
    g.dispose();
  }
}
