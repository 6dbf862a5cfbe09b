package com.olvane.kep.olvane.e2e;

import static com.olvane.kep.olvane.standin.StandinSession.check;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertTrue;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.api.outline.CopyRequest;
import com.olvane.kep.olvane.api.outline.FindRequest;
import com.olvane.kep.olvane.cli.OpenOutline;
import com.olvane.kep.olvane.defs.DefinedGeneration;
import com.olvane.kep.olvane.defs.DefinedLevel;
import com.olvane.kep.olvane.defs.calcscript.MemberInfo;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import com.olvane.kep.olvane.defs.outline.MemberPath;
import com.olvane.kep.olvane.defs.outline.MemberVerifyError;
import com.olvane.kep.olvane.defs.outline.VerifyFinding;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import org.junit.Rule;
import org.junit.Test;

/** A chain of members, far deeper than a small thread's stack lets functions call each other. */
public class ChainTest {
  private static final long SMALL_STACK = 256 * 1024;
  private static final String DIMENSION = "Chain";
  private static final String UDA = "at the bottom";
  private static final String ALIAS = "Ground";

  @Rule public final StoreRule store = new StoreRule();

  private final int length = Settings.scaled(100_000);

  @Test
  public void everyWalkGetsToTheBottomInASmallThread() throws Exception {
    try (OpenOutline open = store.edit()) {
      build(open);
      open.write();
    }
    inSmallThread(() -> {
      try (OpenOutline open = store.query()) {
        search(open);
        list(open);
        export(open);
      }
      try (OpenOutline open = store.edit()) {
        edit(open);
      }
    });
  }

  /**
   * Members are created side by side and then joined to chains of twice the length, again and
   * again: creating one below a long chain would climb to the top each time.
   */
  private void build(OpenOutline open) {
    int dimension = StoreRule.create(open, 0, 0, DIMENSION);
    List<int[]> chains = new ArrayList<>(); // top and bottom
    int previous = 0;
    for (int i = 0; i < length; i++) {
      previous = StoreRule.create(open, dimension, previous, name(i));
      chains.add(new int[] {previous, previous});
    }
    while (chains.size() > 1) {
      List<int[]> joined = new ArrayList<>();
      for (int i = 0; i + 1 < chains.size(); i += 2) {
        check("join two chains", OutlineJni.moveMember(open.instance(), open.handle(),
            chains.get(i)[1], chains.get(i + 1)[0], false));
        joined.add(new int[] {chains.get(i)[0], chains.get(i + 1)[1]});
      }
      if (chains.size() % 2 == 1) {
        joined.add(chains.get(chains.size() - 1));
      }
      chains = joined;
    }
    int bottom = chains.get(0)[1];
    check("set the attribute",
        OutlineJni.setMemberUDA(open.instance(), open.handle(), bottom, UDA));
    check("set the alias", OutlineJni.assignMemberAlias(
        open.instance(), open.handle(), bottom, "Default", ALIAS));
  }

  private static String name(int i) {
    return "Link " + i;
  }

  private static void inSmallThread(Runnable work) throws Exception {
    List<Throwable> thrown = Collections.synchronizedList(new ArrayList<>());
    Thread thread = new Thread(null, work, "small", SMALL_STACK);
    thread.setUncaughtExceptionHandler((failed, e) -> thrown.add(e));
    thread.start();
    thread.join();
    if (!thrown.isEmpty()) {
      throw new AssertionError("in the small thread", thrown.get(0));
    }
  }

  private void search(OpenOutline open) {
    List<MemberPath> paths = new ArrayList<>();
    check("find with path", OutlineJni.findMemberQuery(
        open.handle(), ALIAS, "Default", true, true, paths));
    assertEquals(1, paths.size());
    List<String> path = paths.get(0).getNames();
    assertEquals(length + 1, path.size());
    assertEquals(name(length - 1), path.get(0));
    assertEquals(name(0), path.get(length - 1));
    assertEquals(DIMENSION, path.get(length));

    FindRequest request = new FindRequest();
    request.setText(UDA);
    request.setSearchUDAS(true);
    List<DefaultMember> matches = new ArrayList<>();
    do {
      OutlineJni.findRequest(open.instance(), open.handle(), request, matches);
    } while (request.getLastHandle() != 0);
    assertEquals(length + 1, request.getMembersProcessed());
    assertEquals(1, matches.size());

    List<MemberInfo> infos = new ArrayList<>();
    check("find by wildcard", OutlineJni.listFindMembers(
        open.handle(), DIMENSION, name(length - 1), false, null, infos));
    assertEquals(name(length - 2), infos.get(0).getParentName());
  }

  private void list(OpenOutline open) {
    // Each member object names its dimension, which takes a climb of its own: not from the bottom.
    int depth = Math.min(length - 1, 2000);
    List<DefaultMember> ancestors = new ArrayList<>();
    check("list the ancestors", OutlineJni.getMemberAncestors(
        open.instance(), open.handle(), name(depth), 0, ancestors));
    assertEquals(depth + 1, ancestors.size());
    assertEquals(name(depth - 1), ancestors.get(0).getName());
    assertEquals(DIMENSION, ancestors.get(depth).getName());

    List<String> udas = new ArrayList<>();
    check("list the attributes", OutlineJni.getDimensionUDAS(
        open.instance(), open.handle(), DIMENSION, 0, udas));
    assertEquals(Collections.singletonList(UDA), udas);

    // Records count generations and levels in 16 bits.
    int most = Math.min(length + 1, Short.MAX_VALUE);
    List<DefinedGeneration> generations = new ArrayList<>();
    check("list the generations", OutlineJni.getAllGenerations(
        open.instance(), open.handle(), generations));
    List<DefinedLevel> levels = new ArrayList<>();
    check("list the levels", OutlineJni.getAllLevels(open.instance(), open.handle(), levels));
    assertTrue(generations.size() + " generations", generations.size() >= most);
    assertTrue(levels.size() + " levels", levels.size() >= most);
  }

  private void export(OpenOutline open) {
    Path file = Settings.newFolder().resolve("aliases");
    check("export", OutlineJni.exportAliasTable(
        open.instance(), open.handle(), "Default", file.toString()));
    try {
      assertEquals(
          "$ALT_NAME  'Default'\n\"" + name(length - 1) + "\"   \"" + ALIAS + "\"\n$END\n",
          new String(Files.readAllBytes(file), StandardCharsets.UTF_8));
    } catch (IOException e) {
      throw new AssertionError(e);
    }
  }

  private void edit(OpenOutline open) {
    List<VerifyFinding> findings = new ArrayList<>();
    check("verify", OutlineJni.verifyOutlineEdit(
        open.instance(), store.session().context(), open.handle(), findings));
    // Only the generations that do not fit a record are complained about.
    assertEquals(Math.max(0, length + 1 - Short.MAX_VALUE), findings.size());
    for (VerifyFinding finding : findings) {
      assertTrue(finding.toString(), ((MemberVerifyError) finding).getExtendedPortion() != 0);
    }

    List<DefaultMember> copies = new ArrayList<>();
    assertEquals("a copy below itself", 1060013, OutlineJni.copyMember(open.instance(),
        open.handle(), name(length - 1), 0, name(0), 0, false, new CopyRequest(), copies));
    check("copy the bottom", OutlineJni.copyMember(open.instance(), open.handle(),
        name(length - 1), 0, name(length - 1), 0, true, new CopyRequest(), copies));
    assertEquals(1, copies.size());
    check("delete the chain",
        OutlineJni.deleteMember(open.instance(), open.handle(), open.find(name(0))));
    assertEquals(Collections.emptyList(), StoreRule.children(open, DIMENSION));
  }
}
