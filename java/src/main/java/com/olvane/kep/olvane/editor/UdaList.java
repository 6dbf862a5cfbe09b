package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Member;
import java.awt.Dimension;
import java.util.Collections;
import java.util.List;
import java.util.Set;
import java.util.TreeSet;
import javax.swing.JButton;
import javax.swing.JCheckBox;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JPopupMenu;
import javax.swing.JScrollPane;
import net.miginfocom.swing.MigLayout;

/**
 * The user-defined attributes of members: those that one of them has, to be given to all or taken
 * from all, and a field for another one.
 */
final class UdaList extends JPanel implements DetailsPane.Part {
  private static final long serialVersionUID = 1;
  private static final int MOST_KNOWN = 40;

  private final transient Workspace workspace;
  private final JPanel boxes = new DetailsPane.Form(new MigLayout("insets 0, gapy 0, wrap 2",
      "[50%,fill][50%,fill]"));
  private final JScrollPane scroll = new JScrollPane(boxes);
  private final Hint.Field field = new Hint.Field(8);
  private final JLabel complaint = new JLabel();
  private final transient TextCommit commit;
  private transient List<Member> members = Collections.emptyList();

  UdaList(Workspace workspace) {
    super(new MigLayout("insets 0, fillx, wrap 1, hidemode 3", "[grow,fill]"));
    this.workspace = workspace;
    field.setName("New user-defined attribute");
    Hint.set(field, "Add one");
    JButton known = new JButton("Known");
    known.setToolTipText("Those that other members of the dimension have");
    known.addActionListener(event -> showKnown(known));
    scroll.setBorder(null);
    add(DetailsPane.heading("User-defined attributes", field));
    add(scroll, "wmin 0");
    add(field, "split 2, growx, wmin 0");
    add(known, "growx 0");
    add(complaint);
    commit = new TextCommit(field, complaint,
        TextCommit.accordingTo(text -> {
          if (!text.isEmpty()) {
            new Changes().uda(text);
          }
        }), this::add);
  }

  private void add(String uda) {
    commit.set("");
    if (!uda.isEmpty()) {
      set(uda, true);
    }
  }

  private void set(String uda, boolean has) {
    String title = MemberEdits.title(
        has ? "Add attribute " + uda + " to" : "Remove attribute " + uda + " from", members);
    workspace.edit(MemberEdits.change(title, members, member -> {
      if (member.udas().contains(uda) == has) {
        return new Changes();
      }
      return has ? new Changes().uda(uda) : new Changes().withoutUda(uda);
    }));
  }

  private void showKnown(JButton below) {
    List<Member> of = members;
    workspace.read(() -> {
      Member first = of.get(0);
      Member dimension =
          workspace.outline().read(new int[] {first.dimensionHandle()}, first.details()).get(0);
      return workspace.outline().udas(dimension);
    }, found -> {
      JPopupMenu menu = new JPopupMenu();
      for (String uda : new TreeSet<>(found)) {
        if (menu.getComponentCount() < MOST_KNOWN && !allHave(uda)) {
          menu.add(uda).addActionListener(event -> add(uda));
        }
      }
      if (menu.getComponentCount() == 0) {
        menu.add("No others are known").setEnabled(false);
      }
      menu.show(below, 0, below.getHeight());
    });
  }

  private boolean allHave(String uda) {
    return members.stream().allMatch(member -> member.udas().contains(uda));
  }

  @Override
  public void show(List<Member> now, boolean again) {
    members = now;
    Set<String> all = new TreeSet<>();
    now.forEach(member -> all.addAll(member.udas()));
    boxes.removeAll();
    for (String uda : all) {
      JCheckBox box = new JCheckBox(uda, allHave(uda));
      box.putClientProperty(FlatIcons.MIXED, !allHave(uda));
      box.addActionListener(event -> set(uda, box.isSelected()));
      box.setToolTipText(uda);
      boxes.add(box, "wmin 0");
    }
    int height = Math.min(96, boxes.getPreferredSize().height);
    scroll.setPreferredSize(new Dimension(100, height));
    scroll.setVisible(!all.isEmpty());
    revalidate();
    repaint();
  }

  @Override
  public void flush() {
    commit.flush();
  }
}
