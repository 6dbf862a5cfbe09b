package com.olvane.kep.olvane.editor;

import java.awt.Color;
import java.awt.Dimension;
import java.awt.Font;
import java.awt.FontMetrics;
import java.awt.Graphics;
import java.awt.Graphics2D;
import java.awt.event.MouseEvent;
import java.awt.geom.Rectangle2D;
import java.awt.image.BufferedImage;
import java.io.IOException;
import java.io.PrintWriter;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Collections;
import java.util.HashMap;
import java.util.List;
import java.util.Locale;
import java.util.Map;
import javax.imageio.ImageIO;
import javax.swing.JPanel;

/** Draws a picture, on the screen and into files. */
final class PictureView extends JPanel {
  private static final long serialVersionUID = 1;
  static final int MOST_COLUMNS = 12;
  private static final int LABEL_HEIGHT = 14;

  /** What the colours stand for. */
  enum Colours { GENERATIONS, ATTRIBUTES, FINDINGS }

  private transient Picture picture = new Picture();
  private transient List<Picture.Block> blocks = Collections.emptyList();
  private final transient Map<Integer, String> names = new HashMap<>();
  private Colours colours = Colours.GENERATIONS;
  private boolean byLeaves;
  private int root = -1;
  private int columns = 1;
  private int selected = -1;

  PictureView() {
    setFocusable(true);
    setToolTipText("");
    setPreferredSize(new Dimension(400, 400));
    picture.finish();
  }

  Picture picture() {
    return picture;
  }

  int root() {
    return root;
  }

  int selectedMember() {
    return selected;
  }

  /** Shows a picture. */
  void show(Picture shown, Colours by) {
    int handle = root < 0 ? 0 : picture.handle(root);
    picture = shown;
    colours = by;
    zoom(handle == 0 ? -1 : shown.find(handle));
  }

  void setByLeaves(boolean leaves) {
    byLeaves = leaves;
    layOut();
  }

  /** Shows a subtree only, or with -1 the whole outline. */
  void zoom(int member) {
    root = member;
    layOut();
  }

  /** Marks a member. */
  void select(int member) {
    selected = member;
    repaint();
  }

  /** Takes the names of members by their handles. */
  void setNames(Map<Integer, String> read) {
    names.putAll(read);
    repaint();
  }

  void forgetNames() {
    names.clear();
  }

  /** The handles of the members that are drawn and whose names are not known. */
  int[] nameless() {
    return blocks.stream().filter(one -> one.siblings == 1)
        .mapToInt(one -> picture.handle(one.first))
        .filter(handle -> !names.containsKey(handle)).toArray();
  }

  @Override
  public void setBounds(int x, int y, int width, int height) {
    boolean other = height != getHeight();
    super.setBounds(x, y, width, height);
    if (other) {
      layOut();
    }
  }

  private void layOut() {
    blocks = picture.layOut(root, Math.max(1, getHeight()), byLeaves, MOST_COLUMNS);
    columns = 1 + blocks.stream().mapToInt(one -> one.column).max().orElse(0);
    firePropertyChange("blocks", null, blocks);
    repaint();
  }

  private Rectangle2D bounds(Picture.Block block) {
    double width = (double) getWidth() / columns;
    double gap = block.length > 3 ? 1 : 0;
    double x = block.column * width;
    return new Rectangle2D.Double(
        getComponentOrientation().isLeftToRight() ? x : getWidth() - x - width, block.start,
        width - 1, Math.max(0.5, block.length - gap));
  }

  /** The block at a point, null where there is none. */
  Picture.Block at(int x, int y) {
    for (Picture.Block block : blocks) {
      Rectangle2D box = bounds(block);
      if (x >= box.getX() && x <= box.getMaxX() + 1 && y >= block.start
          && y < block.start + block.length) {
        return block;
      }
    }
    return null;
  }

  @Override
  public String getToolTipText(MouseEvent event) {
    Picture.Block block = at(event.getX(), event.getY());
    if (block == null) {
      return null;
    }
    int members = picture.size(block.first);
    String name = names.getOrDefault(picture.handle(block.first), "");
    return block.siblings > 1 ? String.format("%,d members side by side", block.siblings)
        : members > 1 ? String.format("%s, %,d members", name, members) : name;
  }

  private Color colour(Picture.Block block) {
    Palette palette = Theme.palette();
    boolean dark = palette == Palette.DARK;
    int number = colours == Colours.GENERATIONS ? block.column : block.key;
    if (colours == Colours.FINDINGS) {
      return number == 2 ? palette.error : number == 1 ? mix(palette.error, palette.raised)
          : palette.raised;
    }
    if (colours == Colours.ATTRIBUTES && number == 0) {
      return palette.raised;
    }
    float hue = (0.58f + number * (colours == Colours.GENERATIONS ? 0.09f : 0.382f)) % 1;
    return Color.getHSBColor(hue, dark ? 0.5f : 0.28f, dark ? 0.42f : 0.95f);
  }

  private static Color mix(Color one, Color other) {
    return new Color((one.getRed() + 3 * other.getRed()) / 4,
        (one.getGreen() + 3 * other.getGreen()) / 4, (one.getBlue() + 3 * other.getBlue()) / 4);
  }

  /** The colour of the members with a number, for a legend. */
  Color legend(int number) {
    return colour(new Picture.Block(0, 0, 0, 0, (byte) number));
  }

  private Color textColour(Picture.Block block) {
    return colours == Colours.FINDINGS && block.key == 2
        ? Theme.palette().content : Theme.palette().text;
  }

  private String label(Picture.Block block) {
    return block.length < LABEL_HEIGHT || block.siblings > 1 ? null
        : names.get(picture.handle(block.first));
  }

  @Override
  protected void paintComponent(Graphics graphics) {
    Graphics2D g = (Graphics2D) graphics.create();
    Theme.smoothText(g);
    Palette palette = Theme.palette();
    g.setColor(palette.content);
    g.fillRect(0, 0, getWidth(), getHeight());
    g.setFont(getFont() == null ? new Font(Font.DIALOG, Font.PLAIN, 11)
        : getFont().deriveFont(11f));
    FontMetrics metrics = g.getFontMetrics();
    for (Picture.Block block : blocks) {
      Rectangle2D box = bounds(block);
      g.setColor(colour(block));
      g.fill(box);
      String name = label(block);
      if (name != null) {
        g.setColor(textColour(block));
        Graphics2D clipped = (Graphics2D) g.create();
        clipped.clip(box);
        clipped.drawString(name, (float) box.getX() + 4,
            (float) (box.getCenterY() + (metrics.getAscent() - metrics.getDescent()) / 2.0));
        clipped.dispose();
      }
      if (selected >= block.first && block.first >= 0 && holdsSelected(block)) {
        Flat.box(g, (int) box.getX(), (int) box.getY(), (int) box.getWidth(),
            (int) Math.max(4, box.getHeight()), null, palette.accent, 2f);
      }
    }
    g.dispose();
  }

  private boolean holdsSelected(Picture.Block block) {
    int end = block.first;
    for (int i = 0; i < block.siblings; i++) {
      if (end == selected) {
        return true;
      }
      end += picture.size(end);
    }
    return block.siblings > 1 && selected < end;
  }

  /** Saves what is shown as PNG, at twice its size. */
  void savePng(Path file) throws IOException {
    BufferedImage image =
        new BufferedImage(2 * getWidth(), 2 * getHeight(), BufferedImage.TYPE_INT_RGB);
    Graphics2D g = image.createGraphics();
    g.scale(2, 2);
    paintComponent(g);
    g.dispose();
    if (!ImageIO.write(image, "png", file.toFile())) {
      throw new IOException("No PNG can be written here");
    }
  }

  /** Saves what is shown as SVG. */
  void saveSvg(Path file) throws IOException {
    try (PrintWriter out =
        new PrintWriter(Files.newBufferedWriter(file, StandardCharsets.UTF_8))) {
      out.printf("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%d\" height=\"%d\" "
          + "font-family=\"sans-serif\" font-size=\"11\">%n", getWidth(), getHeight());
      for (Picture.Block block : blocks) {
        Rectangle2D box = bounds(block);
        String title = names.getOrDefault(picture.handle(block.first), "");
        out.printf(Locale.ROOT, "<rect x=\"%.1f\" y=\"%.2f\" width=\"%.1f\" height=\"%.2f\" "
            + "fill=\"#%06x\"><title>%s</title></rect>%n", box.getX(), box.getY(), box.getWidth(),
            box.getHeight(), colour(block).getRGB() & 0xffffff,
            block.siblings > 1 ? block.siblings + " members" : escaped(title));
        String name = label(block);
        if (name != null) {
          out.printf(Locale.ROOT, "<svg x=\"%.1f\" y=\"%.2f\" width=\"%.1f\" height=\"%.2f\">"
              + "<text x=\"4\" y=\"%.2f\" fill=\"#%06x\">%s</text></svg>%n", box.getX(),
              box.getY(), box.getWidth(), box.getHeight(), box.getHeight() / 2 + 4,
              textColour(block).getRGB() & 0xffffff, escaped(name));
        }
      }
      out.println("</svg>");
      if (out.checkError()) {
        throw new IOException("The file could not be written whole");
      }
    }
  }

  private static String escaped(String text) {
    return text.replace("&", "&amp;").replace("<", "&lt;").replaceAll("[\\x00-\\x1f]", " ");
  }
}
