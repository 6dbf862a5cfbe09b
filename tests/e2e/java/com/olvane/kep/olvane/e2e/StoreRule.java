package com.olvane.kep.olvane.e2e;

import static com.olvane.kep.olvane.standin.StandinSession.check;
import static org.junit.Assert.assertEquals;

import com.olvane.kep.olvane.api.InstanceHandle;
import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.api.outline.FindRequest;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.olvane.kep.olvane.standin.Ledger;
import com.olvane.kep.olvane.standin.StandinSession;
import java.util.ArrayList;
import java.util.List;
import java.util.stream.Collectors;
import org.junit.rules.ExternalResource;

/**
 * A session on a new store with the database Test.Test, and short ways to work in it. When a test
 * is over, the API's memory must all have come back.
 */
final class StoreRule extends ExternalResource {
  static final String APPLICATION = "Test";
  static final String DATABASE = "Test";

  private String store;
  private StandinSession session;
  private Ledger before;

  @Override
  protected void before() {
    store = Settings.newStore();
    session = StandinSession.open(store, "tester");
    session.createDatabase(APPLICATION, DATABASE);
    before = StandinSession.memory();
  }

  @Override
  protected void after() {
    session.close();
    Ledger now = StandinSession.memory();
    assertEquals("blocks not given back", before.outstanding(), now.outstanding());
    assertEquals("wrong releases", before.wrongReleases(), now.wrongReleases());
  }

  String address() {
    return store;
  }

  StandinSession session() {
    return session;
  }

  InstanceHandle instance() {
    return session.instance();
  }

  OpenOutline edit() {
    return OpenOutline.edit(session, APPLICATION, DATABASE);
  }

  OpenOutline query() {
    return OpenOutline.query(session, APPLICATION, DATABASE);
  }

  /** Fails with the sentence of a status unless it is 0. */
  static void ok(int status) {
    check("call a native method", status);
  }

  /** The names of the members that a search finds, batch after batch. */
  static List<String> found(OpenOutline open, FindRequest request) {
    List<DefaultMember> matches = new ArrayList<>();
    do {
      OutlineJni.findRequest(open.instance(), open.handle(), request, matches);
    } while (request.getLastHandle() != 0);
    return matches.stream().map(DefaultMember::getName).collect(Collectors.toList());
  }

  /** Adds a member as the first child of a parent, or after a sibling; gives its handle. */
  static int create(OpenOutline open, int parent, int previousSibling, String name) {
    List<DefaultMember> created = new ArrayList<>();
    check("create " + name, OutlineJni.createMember(
        open.instance(), open.handle(), parent, previousSibling, name, created));
    return created.get(0).getHandle();
  }

  /** The children of a member, or the dimensions for a null name. */
  static List<DefaultMember> children(OpenOutline open, String parent) {
    List<DefaultMember> children = new ArrayList<>();
    check("list the children of " + parent, parent == null
        ? OutlineJni.getDimensionsEx(open.instance(), open.handle(), children)
        : OutlineJni.getChildrenEx(open.instance(), open.handle(), parent, 0, children));
    return children;
  }
}
