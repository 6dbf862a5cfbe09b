package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Consolidation;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Share;
import java.awt.Color;
import java.awt.Component;
import java.awt.Dimension;
import java.awt.FlowLayout;
import java.awt.Font;
import java.awt.Graphics;
import java.awt.Graphics2D;
import java.awt.RenderingHints;
import java.util.ArrayList;
import java.util.List;
import javax.swing.BorderFactory;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JTree;
import javax.swing.tree.TreeCellRenderer;

/**
 * Shows a member in one line: consolidation sign, name, alias, marks for formula and attributes,
 * number of children.
 */
final class MemberRenderer extends JPanel implements TreeCellRenderer {
  private static final long serialVersionUID = 1;

  private final OutlineTree tree;
  private boolean selected;
  private boolean focused;
  private boolean dropTarget;

  MemberRenderer(OutlineTree tree) {
    super(new FlowLayout(FlowLayout.LEADING, 8, 0));
    this.tree = tree;
    setOpaque(false);
    setBorder(Theme.space(3, 0));
  }

  @Override
  public Component getTreeCellRendererComponent(JTree shown, Object value, boolean isSelected,
      boolean expanded, boolean leaf, int row, boolean hasFocus) {
    selected = isSelected;
    focused = hasFocus && shown.isFocusOwner();
    JTree.DropLocation drop = shown.getDropLocation();
    dropTarget = drop != null && drop.getChildIndex() < 0 && drop.getPath() != null
        && drop.getPath().getLastPathComponent() == value;
    setComponentOrientation(shown.getComponentOrientation());
    removeAll();
    Member member = ((MemberNode) value).member;
    if (member == null) {
      add("\u2026", Theme.palette().faint, Font.PLAIN);
    } else {
      addParts(member, Theme.palette());
    }
    getAccessibleContext().setAccessibleName(member == null ? "being read" : member.name());
    getAccessibleContext().setAccessibleDescription(member == null ? "" : description(member));
    return this;
  }

  private JLabel add(String text, Color color, int style) {
    JLabel label = new JLabel(text);
    label.setFont(tree.getFont().deriveFont(style));
    label.setForeground(color);
    add(label);
    return label;
  }

  private void addMark(String text, Color color, int style) {
    JLabel mark = add(text, color, style);
    mark.setFont(mark.getFont().deriveFont(mark.getFont().getSize2D() * 0.85f));
    mark.setBorder(BorderFactory.createCompoundBorder(
        BorderFactory.createLineBorder(color, 1, true), Theme.space(0, 2)));
  }

  private void addParts(Member member, Palette palette) {
    Share share = member.share();
    if (!member.isDimension() && share != Share.ATTRIBUTE) {
      add(String.valueOf(member.consolidation().sign()),
          member.consolidation() == Consolidation.ADD ? palette.faint : palette.accent, Font.BOLD);
    }
    add(member.name(), tree.transfer.isCut(member) ? palette.faint : palette.text,
        member.isDimension() ? Font.BOLD : share == Share.SHARED ? Font.ITALIC : Font.PLAIN);
    String table = tree.aliasTable();
    if (member.details().aliasTables().contains(table) && !member.alias(table).isEmpty()) {
      add(member.alias(table), palette.faint, Font.PLAIN);
    }
    if (!member.formula().isEmpty()) {
      addMark("fx", palette.good, Font.ITALIC);
    }
    if (!member.attributes().isEmpty()) {
      addMark("A", palette.warning, Font.PLAIN);
    }
    if (share == Share.SHARED || share == Share.LABEL_ONLY) {
      addMark(share == Share.SHARED ? "shared" : "label", palette.faint, Font.PLAIN);
    }
    if (member.hasChildren()) {
      add(String.format("%,d", member.childCount()), palette.faint, Font.PLAIN);
    }
  }

  /** What the marks mean, in words. */
  static String description(Member member) {
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
      words.add(String.format(
          "%,d %s", member.childCount(), member.childCount() == 1 ? "child" : "children"));
    }
    return String.join(", ", words);
  }

  @Override
  public Dimension getPreferredSize() {
    return new Dimension(super.getPreferredSize().width, tree.getRowHeight());
  }

  @Override
  protected void paintComponent(Graphics graphics) {
    Graphics2D g = (Graphics2D) graphics.create();
    g.setRenderingHint(RenderingHints.KEY_ANTIALIASING, RenderingHints.VALUE_ANTIALIAS_ON);
    Palette palette = Theme.palette();
    if (selected || dropTarget) {
      g.setColor(dropTarget || tree.isFocusOwner() ? palette.selection : palette.hover);
      g.fillRoundRect(0, 1, getWidth(), getHeight() - 2, 6, 6);
    }
    if (focused) {
      g.setColor(palette.accent);
      g.drawRoundRect(0, 1, getWidth() - 1, getHeight() - 3, 6, 6);
    }
    g.dispose();
  }
}
