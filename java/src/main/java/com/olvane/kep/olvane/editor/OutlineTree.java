package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import java.awt.Point;
import java.awt.Rectangle;
import java.awt.event.KeyEvent;
import java.awt.event.MouseEvent;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.Comparator;
import java.util.Enumeration;
import java.util.HashMap;
import java.util.HashSet;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Map;
import java.util.Objects;
import java.util.Set;
import java.util.TreeSet;
import java.util.function.BiConsumer;
import java.util.function.Consumer;
import java.util.stream.Collectors;
import java.util.stream.Stream;
import javax.swing.DropMode;
import javax.swing.JTree;
import javax.swing.ToolTipManager;
import javax.swing.tree.TreePath;
import javax.swing.tree.TreeSelectionModel;

/**
 * The tree of the outline. It shows what the workspace has selected, and selects there what is
 * selected here; edits keep what is expanded and selected.
 */
final class OutlineTree extends JTree {
  /** More members than these are not selected at once. */
  static final int SELECTABLE = 10_000;

  private final Workspace workspace;
  final PagedTreeModel model;
  final MemberTransfer transfer;
  /** Above 0 while the tree itself changes what is expanded or selected. */
  private int adjusting;
  /** Whether some of what the user has selected is still to be read. */
  boolean unreadSelected;
  /** The alias table whose aliases are shown; empty for none. */
  String aliasTable;
  /** Hears why a name is not allowed while it is typed; an empty sentence takes it back. */
  Consumer<String> complaint = sentence -> {};
  /** Hears of letters that are typed on the tree. */
  Consumer<Character> typed = letter -> {};
  /** Hears of names that were typed for members. */
  BiConsumer<Member, String> renamed = (member, name) -> {};
  /** Hears of a name that was given up with Escape. */
  Runnable cancelled = () -> {};

  OutlineTree(Workspace workspace) {
    this.workspace = workspace;
    this.model = new PagedTreeModel(this, workspace);
    setModel(model);
    setName("outline");
    getAccessibleContext().setAccessibleName("Outline");
    setRootVisible(false);
    setShowsRootHandles(true);
    setLargeModel(true);
    setToggleClickCount(2);
    setScrollsOnExpand(false);
    setExpandsSelectedPaths(true);
    getSelectionModel().setSelectionMode(TreeSelectionModel.DISCONTIGUOUS_TREE_SELECTION);
    setCellRenderer(new MemberRenderer(this));
    setEditable(true);
    setCellEditor(new NameEditor(this));
    setInvokesStopCellEditing(true);
    ToolTipManager.sharedInstance().registerComponent(this);
    addTreeSelectionListener(event -> selectionChanged());
    workspace.changed.hear(change -> refresh());
    workspace.selected.hear(this::show);
    setDragEnabled(true);
    setDropMode(DropMode.ON_OR_INSERT);
    transfer = new MemberTransfer(this, workspace);
    setTransferHandler(transfer);
    setAliasTable("Default");
  }

  @Override
  public void updateUI() {
    super.updateUI();
    // The same height for all rows, or a large tree would measure each.
    setRowHeight(getFontMetrics(getFont()).getHeight() + 6);
  }

  /** Shows the aliases of another table; of none when it is empty. */
  void setAliasTable(String table) {
    aliasTable = table;
    Details details = Details.NONE.formula().attributes();
    model.details = table.isEmpty() ? details : details.aliases(table);
    refresh();
  }

  // ---- Selection ----

  /** Changes what is selected without telling the workspace. */
  private void adjust(Runnable change) {
    adjusting++;
    try {
      change.run();
    } finally {
      adjusting--;
    }
  }

  private void selectionChanged() {
    if (adjusting == 0) {
      List<MemberNode> nodes = selectedNodes();
      List<Member> members = nodes.stream().map(node -> node.member)
          .filter(Objects::nonNull).collect(Collectors.toList());
      unreadSelected = members.size() < nodes.size();
      adjust(() -> workspace.select(members));
      model.read(nodes.stream().filter(node -> node.member == null).collect(Collectors.toList()));
    }
  }

  /** Does something with the members that are selected when all of them have been read. */
  void whenRead(Runnable then) {
    if (unreadSelected) {
      // Behind the reading that their selection has begun.
      workspace.read(() -> true, read -> then.run());
    } else {
      then.run();
    }
  }

  /** The nodes that are selected, from top to bottom. */
  List<MemberNode> selectedNodes() {
    int[] rows = getSelectionRows();
    return rows == null ? Collections.emptyList() : Arrays.stream(rows).sorted()
        .mapToObj(row -> MemberNode.of(getPathForRow(row))).collect(Collectors.toList());
  }

  private boolean showsSelection() {
    TreePath[] paths = getSelectionPaths();
    Stream<TreePath> selected = paths == null ? Stream.empty() : Arrays.stream(paths);
    return selected.map(path -> MemberNode.of(path).member).collect(Collectors.toSet())
        .equals(new HashSet<>(workspace.selection()));
  }

  /** Whether a node must be kept: it is selected or expanded. */
  boolean uses(MemberNode node) {
    return isPathSelected(node.path()) || node.childCount > 0 && isExpanded(node.path());
  }

  /** Members have been read for nodes that the tree has had already. */
  void arrived() {
    if (unreadSelected) {
      selectionChanged();
    }
    treeDidChange();
    repaint();
  }

  /** Selects what the workspace has selected, wherever it is. */
  private void show(List<Member> members) {
    if (adjusting == 0 && !showsSelection()) {
      unreadSelected = false;
      reveal(members, () -> {});
    }
  }

  /** Opens what is above members, selects them and brings the first into view. */
  void reveal(List<Member> members, Runnable then) {
    List<Integer> handles = members.stream().limit(SELECTABLE).map(Member::handle)
        .collect(Collectors.toList());
    Details details = model.details;
    workspace.read(() -> new PagedTreeModel.Reading(workspace.outline, details, handles), read -> {
      List<MemberNode> nodes = read.addTo(model);
      adjust(() -> {
        nodes.forEach(node -> expandPath(node.path().getParentPath()));
        select(nodes.stream());
      });
      if (!nodes.isEmpty()) {
        scrollInto(nodes.get(0).path());
      }
      then.run();
    });
  }

  /** Closes all members; what is selected below becomes its dimension. */
  void collapseAll() {
    expanded().map(MemberNode::path)
        .sorted(Comparator.comparingInt(TreePath::getPathCount).reversed())
        .forEach(this::collapsePath);
  }

  private void select(Stream<MemberNode> nodes) {
    setSelectionPaths(nodes.map(MemberNode::path).toArray(TreePath[]::new));
  }

  private boolean isInView(TreePath path) {
    Rectangle row = path == null ? null : getPathBounds(path);
    return row != null && getVisibleRect().contains(getVisibleRect().x, row.y, 1, row.height);
  }

  /** Scrolls to a row, with some of its neighbours in view when it was not. */
  void scrollInto(TreePath path) {
    Rectangle row = getPathBounds(path);
    if (row != null && !isInView(path)) {
      Rectangle view = new Rectangle(row.x, row.y - getVisibleRect().height / 3,
          Math.min(row.width, getVisibleRect().width), getVisibleRect().height * 2 / 3);
      // The height that it is about to have: members may have been opened just now.
      scrollRectToVisible(view.intersection(
          new Rectangle(0, 0, Integer.MAX_VALUE, getPreferredSize().height)));
    }
  }

  @Override
  protected TreePath[] getPathBetweenRows(int first, int last) {
    int low = Math.min(first, last);
    int high = Math.max(first, last);
    if (high - low >= SELECTABLE) {
      getToolkit().beep();
      complaint.accept(String.format("At most %,d members can be selected at once.", SELECTABLE));
      // Those next to where the selection began.
      low = getRowForPath(getAnchorSelectionPath()) == high ? high - SELECTABLE + 1 : low;
      high = low + SELECTABLE - 1;
    }
    return super.getPathBetweenRows(low, high);
  }

  // ---- Edits ----

  /** Reads all that is in view, expanded or selected anew, wherever it stands now. */
  private void refresh() {
    Set<Integer> open = expandedHandles();
    // In their order, which makes it quick to find their places.
    Set<Integer> keep = new LinkedHashSet<>(selectedHandles());
    keep.addAll(open);
    Map<Integer, Set<Integer>> inView = pagesInView();
    Details details = model.details;
    workspace.read(() -> new PagedTreeModel.Reading(workspace.outline, details, keep)
        .withPages(inView), read -> {
          if (open.equals(expandedHandles()) && details == model.details) {
            replace(read, open);
          } else {
            refresh();
          }
        });
  }

  /** The nodes whose children are shown. */
  private Stream<MemberNode> expanded() {
    Enumeration<TreePath> paths = getExpandedDescendants(model.getRoot().path());
    return paths == null ? Stream.empty() : Collections.list(paths).stream().map(MemberNode::of)
        .filter(node -> !node.isRoot());
  }

  private Set<Integer> expandedHandles() {
    return expanded().map(MemberNode::handle).collect(Collectors.toCollection(TreeSet::new));
  }

  private List<Integer> selectedHandles() {
    return selectedNodes().stream().map(MemberNode::handle).collect(Collectors.toList());
  }

  private void replace(PagedTreeModel.Reading read, Set<Integer> open) {
    List<Integer> selection = selectedHandles();
    boolean seen = isInView(getSelectionPath());
    adjust(() -> {
      // The tree looks at what is selected while the numbers of children change below it.
      clearSelection();
      setLeadSelectionPath(null);
      setAnchorSelectionPath(null);
      read.replace(model);
      model.fireChanged();
      open.stream().map(model::node).filter(node -> node != null && node.childCount > 0)
          .filter(node -> open.contains(node.parent.handle()) || node.parent.isRoot())
          .forEach(node -> expandPath(node.path()));
      select(selection.stream().map(model::node).filter(Objects::nonNull));
    });
    if (seen && getSelectionPath() != null) {
      // It may have moved.
      scrollInto(getSelectionPath());
    }
    show(workspace.selection());
    repaint();
  }

  /** The pages of children that are in view, by the handles of the parents. */
  private Map<Integer, Set<Integer>> pagesInView() {
    Map<Integer, Set<Integer>> pages = new HashMap<>();
    Rectangle view = getVisibleRect();
    int last = getClosestRowForLocation(0, view.y + view.height);
    for (int row = Math.max(0, getClosestRowForLocation(0, view.y)); row <= last; row++) {
      MemberNode node = MemberNode.of(getPathForRow(row));
      if (!node.parent.isRoot()) {
        pages.computeIfAbsent(node.parent.handle(), handle -> new HashSet<>())
            .add(node.index / MemberNode.Page.SIZE);
      }
    }
    return pages;
  }

  @Override
  protected void processKeyEvent(KeyEvent event) {
    // JTree's own way to names that are typed would need all members in the tree.
    if (event.getID() == KeyEvent.KEY_TYPED && !event.isControlDown() && !event.isAltDown()
        && !Character.isWhitespace(event.getKeyChar())
        && !Character.isISOControl(event.getKeyChar())) {
      typed.accept(event.getKeyChar());
      event.consume();
      return;
    }
    super.processKeyEvent(event);
  }

  /** Begins to edit the name of a member that is selected. */
  void editName() {
    TreePath path = getLeadSelectionPath();
    if (path != null && (MemberNode.of(path)).member != null) {
      scrollInto(path);
      startEditingAtPath(path);
    }
  }

  @Override
  public void cancelEditing() {
    super.cancelEditing();
    cancelled.run();
  }

  /** What is clicked is selected before its menu comes; by keyboard it comes where that is. */
  @Override
  public Point getPopupLocation(MouseEvent event) {
    TreePath path = event == null ? getLeadSelectionPath()
        : getClosestPathForLocation(event.getX(), event.getY());
    if (path != null && !isPathSelected(path)) {
      setSelectionPath(path);
    }
    requestFocusInWindow();
    Rectangle row = getPathBounds(path);
    return event != null || row == null ? super.getPopupLocation(event)
        : new Point(row.x, row.y + row.height);
  }

  @Override
  public String getToolTipText(MouseEvent event) {
    TreePath path = getPathForLocation(event.getX(), event.getY());
    MemberNode node = path == null ? null : MemberNode.of(path);
    return node == null || node.member == null
        ? null : MemberRenderer.description(node.member);
  }
}
