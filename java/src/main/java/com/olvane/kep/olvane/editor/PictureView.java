package com.olvane.kep.olvane.editor;

import java.awt.Color;
import java.awt.Dimension;
import java.awt.FontMetrics;
import java.awt.Graphics2D;
import java.awt.Graphics;
import java.awt.event.MouseEvent;
import java.awt.geom.Rectangle2D;
import java.awt.image.BufferedImage;
import java.io.IOException;
import java.io.OutputStream;
import java.io.PrintWriter;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Collections;
import java.util.List;
import java.util.Locale;
import javax.imageio.ImageIO;
import javax.swing.JPanel;

/** Draws a picture, on the screen and into files. */
final class PictureView extends JPanel {
  private static final int LABEL_HEIGHT = 14;

  Picture picture = new Picture(null);
  /** The member whose subtree is shown, -1 for the whole outline; and the one that is marked. */
  int root = -1;
  int selected = -1;
  private List<Picture.Block> blocks = Collections.emptyList();
  private int columns = 1;

  PictureView() {
    setFocusable(true);
    setToolTipText("");
    setPreferredSize(new Dimension(400, 400));
  }

  /** Shows the blocks of a subtree of a picture, or with -1 of the whole outline. */
  void show(Picture shown, int shownRoot, List<Picture.Block> shownBlocks) {
    picture = shown;
    root = shownRoot;
    blocks = shownBlocks;
    columns = 1 + blocks.stream().mapToInt(one -> one.column).max().orElse(0);
    repaint();
  }

  // ---- What a block looks like ----

  private Rectangle2D bounds(Picture.Block block) {
    double width = (double) getWidth() / columns;
    double gap = block.length > 3 ? 1 : 0;
    double x = block.column * width;
    return new Rectangle2D.Double(
        getComponentOrientation().isLeftToRight() ? x : getWidth() - x - width, block.start,
        width - 1, Math.max(0.5, block.length - gap));
  }

  private Color colour(Picture.Block block) {
    Palette palette = Theme.palette();
    if (picture.marked >= 0) {
      return block.key == 2 ? palette.error
          : block.key == 1 ? mix(palette.error, palette.raised) : palette.raised;
    }
    if (picture.attribute != null) {
      return block.key == 0 ? palette.raised : ofAttribute(block.key);
    }
    int above = 0;
    for (int at = picture.parents[block.first]; at >= 0; at = picture.parents[at]) {
      above++;
    }
    return hue(0.09f * above);
  }

  /** The colour of the attribute of a number. */
  static Color ofAttribute(int number) {
    return hue(0.382f * number);
  }

  private static Color hue(float turn) {
    boolean dark = Theme.palette() == Palette.DARK;
    return Color.getHSBColor((0.58f + turn) % 1, dark ? 0.5f : 0.28f, dark ? 0.42f : 0.95f);
  }

  private static Color mix(Color one, Color other) {
    return new Color((one.getRed() + 3 * other.getRed()) / 4,
        (one.getGreen() + 3 * other.getGreen()) / 4, (one.getBlue() + 3 * other.getBlue()) / 4);
  }

  private Color textColour(Picture.Block block) {
    return picture.marked >= 0 && block.key == 2
        ? Theme.palette().content : Theme.palette().text;
  }

  /** What is written into a block; empty where it is too low. */
  private String label(Picture.Block block) {
    return block.length < LABEL_HEIGHT || block.siblings > 1 ? "" : block.name;
  }

  private String description(Picture.Block block) {
    int members = picture.sizes[block.first];
    return block.siblings > 1 ? String.format("%,d members side by side", block.siblings)
        : members > 1 ? String.format("%s, %,d members", block.name, members) : block.name;
  }

  private boolean holdsSelected(Picture.Block block) {
    return block.first == selected
        || block.siblings > 1 && block.first < selected && selected < block.end;
  }

  /** The block at a point, null where there is none. */
  Picture.Block at(int x, int y) {
    return blocks.stream().filter(block -> {
      Rectangle2D box = bounds(block);
      return x >= box.getX() && x <= box.getMaxX() + 1 && y >= block.start
          && y < block.start + block.length;
    }).findFirst().orElse(null);
  }

  @Override
  public String getToolTipText(MouseEvent event) {
    Picture.Block block = at(event.getX(), event.getY());
    return block == null ? null : description(block);
  }

  // ---- Drawing ----

  @Override
  protected void paintComponent(Graphics graphics) {
    Graphics2D g = (Graphics2D) graphics.create();
    Theme.smoothText(g);
    g.setColor(Theme.palette().content);
    g.fillRect(0, 0, getWidth(), getHeight());
    g.setFont(g.getFont().deriveFont(11f));
    FontMetrics metrics = g.getFontMetrics();
    for (Picture.Block block : blocks) {
      Rectangle2D box = bounds(block);
      g.setColor(colour(block));
      g.fill(box);
      Graphics2D clipped = (Graphics2D) g.create();
      clipped.clip(box);
      clipped.setColor(textColour(block));
      clipped.drawString(label(block), (float) box.getX() + 4,
          (float) (box.getCenterY() + (metrics.getAscent() - metrics.getDescent()) / 2.0));
      clipped.dispose();
      if (holdsSelected(block)) {
        Flat.box(g, (int) box.getX(), (int) box.getY(), (int) box.getWidth(),
            (int) Math.max(4, box.getHeight()), null, Theme.palette().accent, 2f);
      }
    }
    g.dispose();
  }

  /** Saves what is shown, as PNG at twice its size if the name of the file says so, else as SVG. */
  void save(Path file) throws IOException {
    if (!file.toString().toLowerCase(Locale.ROOT).endsWith(".png")) {
      saveSvg(file);
      return;
    }
    BufferedImage image =
        new BufferedImage(2 * getWidth(), 2 * getHeight(), BufferedImage.TYPE_INT_RGB);
    Graphics2D g = image.createGraphics();
    g.scale(2, 2);
    int marked = selected;
    selected = -1;
    paintComponent(g);
    selected = marked;
    g.dispose();
    try (OutputStream out = Files.newOutputStream(file)) {
      if (!ImageIO.write(image, "png", out)) {
        throw new IOException("No PNG can be written here");
      }
    }
  }

  private void saveSvg(Path file) throws IOException {
    try (PrintWriter out =
        new PrintWriter(Files.newBufferedWriter(file, StandardCharsets.UTF_8))) {
      out.printf("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%d\" height=\"%d\" "
          + "font-family=\"sans-serif\" font-size=\"11\">"
          + "<rect width=\"100%%\" height=\"100%%\" fill=\"#%06x\"/>%n", getWidth(), getHeight(),
          Theme.palette().content.getRGB() & 0xffffff);
      for (Picture.Block block : blocks) {
        Rectangle2D box = bounds(block);
        out.printf(Locale.ROOT, "<svg x=\"%.1f\" y=\"%.2f\" width=\"%.1f\" height=\"%.2f\">"
            + "<title>%s</title><rect width=\"100%%\" height=\"100%%\" fill=\"#%06x\"/>"
            + "<text x=\"4\" y=\"%.2f\" fill=\"#%06x\">%s</text></svg>%n", box.getX(), box.getY(),
            box.getWidth(), box.getHeight(), escaped(description(block)),
            colour(block).getRGB() & 0xffffff, box.getHeight() / 2 + 4,
            textColour(block).getRGB() & 0xffffff, escaped(label(block)));
      }
      out.println("</svg>");
      if (out.checkError()) {
        throw new IOException("The file could not be written whole");
      }
    }
  }

  /** A text as XML and HTML have it. */
  static String escaped(String text) {
    return text.replace("&", "&amp;").replace("<", "&lt;").replaceAll("[\\x00-\\x1f]", " ");
  }
}
