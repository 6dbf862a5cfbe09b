package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Consolidation;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Share;
import java.awt.Color;
import java.awt.Component;
import java.awt.Dimension;
import java.awt.FlowLayout;
import java.awt.Font;
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
  private final OutlineTree tree;

  MemberRenderer(OutlineTree tree) {
    super(new FlowLayout(FlowLayout.LEADING, 5, 2));
    this.tree = tree;
  }

  @Override
  public Component getTreeCellRendererComponent(JTree shown, Object value, boolean isSelected,
      boolean expanded, boolean leaf, int row, boolean hasFocus) {
    Palette palette = Theme.palette();
    JTree.DropLocation drop = shown.getDropLocation();
    boolean dropTarget = tree.transfer.box == value || drop != null && drop.getChildIndex() < 0
        && drop.getPath() != null && drop.getPath().getLastPathComponent() == value;
    setOpaque(isSelected || dropTarget);
    setBackground(dropTarget || shown.isFocusOwner() ? palette.selection : palette.hover);
    setBorder(hasFocus && shown.isFocusOwner()
        ? BorderFactory.createLineBorder(palette.accent, 1, true) : Theme.space(1, 1));
    setComponentOrientation(shown.getComponentOrientation());
    removeAll();
    Member member = ((MemberNode) value).member;
    if (member == null) {
      add("\u2026", palette.faint, Font.PLAIN);
    } else {
      addParts(member, palette);
    }
    getAccessibleContext().setAccessibleName(member == null ? "being read" : member.name());
    getAccessibleContext().setAccessibleDescription(member == null ? "" : description(member));
    return this;
  }

  private JLabel add(String text, Color color, int style) {
    JLabel label = new JLabel(text);
    label.setFont(tree.getFont().deriveFont(style));
    label.setForeground(color);
    // Doubled in size, letters take up to so much more than twice their room.
    Dimension size = label.getPreferredSize();
    label.setPreferredSize(new Dimension(size.width + size.width / 16 + 2, size.height));
    add(label);
    return label;
  }

  private void addMark(String text, Color color, int style) {
    JLabel mark = add(text, color, style);
    mark.setPreferredSize(null);
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
    String table = tree.aliasTable;
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
}
