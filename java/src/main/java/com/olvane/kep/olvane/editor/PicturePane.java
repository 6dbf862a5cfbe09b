package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.DimensionCategory;
import com.olvane.kep.olvane.outline.Finding;
import com.olvane.kep.olvane.outline.Member;
import java.awt.event.ComponentAdapter;
import java.awt.event.ComponentEvent;
import java.awt.event.MouseAdapter;
import java.awt.event.MouseEvent;
import java.io.File;
import java.io.IOException;
import java.util.List;
import java.util.function.IntUnaryOperator;
import java.util.stream.Collectors;
import java.util.stream.Stream;
import javax.swing.DefaultComboBoxModel;
import javax.swing.JButton;
import javax.swing.JComboBox;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.Timer;
import net.miginfocom.swing.MigLayout;

/**
 * The outline as a picture beside the tree. The members are read anew a moment after an edit, while
 * the picture is seen.
 */
final class PicturePane extends JPanel {
  private static final int STEP = 20_000;
  private static final int MOST_COLUMNS = 12;
  private static final int MOST_IN_LEGEND = 8;
  private static final String GENERATION = "Generation";
  private static final String FINDING = "Finding";

  private final Workspace workspace;
  private final PictureView view = new PictureView();
  private final JComboBox<String> size = new JComboBox<>(new String[] {"Members", "Leaves"});
  private final JComboBox<String> colour = new JComboBox<>(new String[] {GENERATION, FINDING});
  private final JButton up = new JButton("Zoom out");
  private final JLabel legend = new JLabel(" ");
  private final Timer pause = new Timer(400, event -> read());
  private boolean stale = true;
  /** What is to be seen once it is laid out; the view has what is seen now. */
  private Picture picture = view.picture;
  private int root = -1;
  private int asked;
  private int laidOut;

  PicturePane(Workspace workspace) {
    super(new MigLayout("insets 8 0 0 0, fill, hidemode 3",
        "12[][]16[][]16[]push[]12", "[][]8[grow,fill]"));
    this.workspace = workspace;
    pause.setRepeats(false);
    JButton export = new JButton("Export \u2026");
    Prompt.addField(this, "Size by", size);
    Prompt.addField(this, "Colour by", colour);
    add(up);
    add(export, "wrap");
    add(legend, "span, growx, wmin 0, wrap");
    add(view, "span, grow, pad 0 -12 0 12");
    size.addActionListener(event -> layOut());
    colour.addActionListener(event -> read());
    up.addActionListener(event -> zoom(view.root < 0 ? -1 : view.picture.parents[view.root]));
    up.setEnabled(false);
    export.addActionListener(event -> export());
    view.getAccessibleContext().setAccessibleName("Picture of the outline");
    view.addComponentListener(new ComponentAdapter() {
      @Override
      public void componentResized(ComponentEvent event) {
        layOut();
      }
    });
    view.addMouseListener(new MouseAdapter() {
      @Override
      public void mousePressed(MouseEvent event) {
        view.requestFocusInWindow();
        Picture.Block block = view.at(event.getX(), event.getY());
        if (block != null && event.getClickCount() == 1) {
          choose(block.first);
        } else if (block != null) {
          zoom(block.siblings > 1 ? view.picture.parents[block.first] : block.first);
        }
      }
    });
    Listen.onKey(view, "ENTER", () -> zoom(view.selected));
    Listen.onKey(view, "BACK_SPACE", up::doClick);
    bind("LEFT", at -> view.picture.parents[at]);
    bind("RIGHT", at -> at + 1);
    bind("DOWN", at -> at + view.picture.sizes[at]);
    bind("UP", at -> at - 1);
    Listen.onShowing(this, seen -> {
      if (stale) {
        read();
      }
    });
    workspace.selected.hear(this::mark);
    workspace.changed.hear(change -> {
      stale = true;
      pause.restart();
    });
  }

  private void bind(String key, IntUnaryOperator next) {
    Listen.onKey(view, key,
        () -> choose(view.selected < 0 ? 0 : next.applyAsInt(view.selected)));
  }

  private void choose(int member) {
    if (member >= 0 && member < view.picture.count) {
      int handle = view.picture.handles[member];
      workspace.read(() -> workspace.readIfThere(handle, Details.NONE), workspace::select);
    }
  }

  private void zoom(int member) {
    root = member < 0 ? -1 : picture.find(view.picture.handles[member]);
    layOut();
  }

  private void mark(List<Member> members) {
    view.selected = members.isEmpty() ? -1 : view.picture.find(members.get(0).handle());
    view.repaint();
  }

  // ---- Reading ----

  private void read() {
    if (!isShowing()) {
      return;
    }
    stale = false;
    int number = ++asked;
    Object by = colour.getSelectedItem();
    legend.setText("Reading the outline \u2026");
    workspace.run("Reading the outline for its picture", progress -> {
      Picture picture =
          new Picture(by.equals(GENERATION) || by.equals(FINDING) ? null : by.toString());
      workspace.outline.dimensions().forEach(one -> read(picture, one, progress));
      picture.finish();
      if (by.equals(FINDING)) {
        picture.mark(workspace.outline.verify().stream().map(Finding::handle)
            .collect(Collectors.toSet()));
      }
      return picture;
    }, picture -> {
      if (number == asked) {
        show(picture);
      }
    });
  }

  private void read(Picture picture, Member dimension, EditContext.Progress progress) {
    Details details = picture.attribute == null ? Details.NONE : Details.NONE.attributes();
    if (dimension.category() == DimensionCategory.ATTRIBUTE) {
      picture.attributeDimensions.add(dimension.name());
    }
    try (Stream<Member> all = workspace.outline.subtree(dimension, details)) {
      all.forEach(member -> {
        picture.add(member);
        if (picture.count % STEP == 0) {
          progress.at(picture.count, workspace.members());
        }
      });
    }
  }

  private void show(Picture read) {
    DefaultComboBoxModel<String> offered =
        new DefaultComboBoxModel<>(new String[] {GENERATION, FINDING});
    read.attributeDimensions.forEach(offered::addElement);
    if (offered.getIndexOf(colour.getSelectedItem()) >= 0) {
      offered.setSelectedItem(colour.getSelectedItem());
    }
    colour.setModel(offered);
    picture = read;
    zoom(view.root);
    StringBuilder attributes = new StringBuilder("<html><nobr>");
    read.attributes.stream().limit(MOST_IN_LEGEND).forEach(name ->
        attributes.append(String.format("<font color='#%06x'>\u25a0</font> %s &nbsp; ",
            PictureView.ofAttribute(1 + read.attributes.indexOf(name)).getRGB() & 0xffffff,
            PictureView.escaped(name))));
    legend.setText(read.attribute != null ? attributes.toString()
        : read.marked >= 0 ? String.format(
            "%,d members with findings in red; what lies above them is pale", read.marked)
        : String.format("%,d members, a column a generation; a double click zooms in, "
            + "Backspace out", read.count));
  }

  /** Lays out what is to be seen, and shows it with its names. */
  private void layOut() {
    int number = ++laidOut;
    Picture laid = picture;
    int top = root;
    int height = Math.max(1, view.getHeight());
    boolean byLeaves = size.getSelectedIndex() == 1;
    workspace.read(() -> {
      List<Picture.Block> blocks = laid.layOut(top, height, byLeaves, MOST_COLUMNS);
      blocks.stream().filter(one -> one.siblings == 1).forEach(one ->
          workspace.readIfThere(laid.handles[one.first], Details.NONE)
              .forEach(member -> one.name = member.name()));
      return blocks;
    }, blocks -> {
      if (number == laidOut) {
        view.show(laid, top, blocks);
        up.setEnabled(top >= 0);
        mark(workspace.selection());
      }
    });
  }

  private void export() {
    File file = Prompt.file(this, "Export the picture", workspace.name(), "svg", "png");
    if (file == null) {
      return;
    }
    try {
      view.save(file.toPath());
      legend.setText("The picture is now in " + file + ".");
    } catch (IOException e) {
      workspace.fail(e);
    }
  }
}
