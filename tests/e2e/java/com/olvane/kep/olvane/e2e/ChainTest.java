package com.olvane.kep.olvane.e2e;

import static com.olvane.kep.olvane.e2e.StoreRule.children;
import static com.olvane.kep.olvane.e2e.StoreRule.create;
import static com.olvane.kep.olvane.e2e.StoreRule.found;
import static com.olvane.kep.olvane.e2e.StoreRule.ok;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertTrue;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.api.outline.CopyRequest;
import com.olvane.kep.olvane.api.outline.FindRequest;
import com.olvane.kep.olvane.defs.DefinedGeneration;
import com.olvane.kep.olvane.defs.DefinedLevel;
import com.olvane.kep.olvane.defs.OutlineMemberProperties;
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
    int dimension = create(open, 0, 0, DIMENSION);
    int[] links = new int[length];
    for (int i = 0; i < length; i++) {
      links[i] = create(open, dimension, i == 0 ? 0 : links[i - 1], name(i));
    }
    for (int chain = 1; chain < length; chain *= 2) {
      for (int i = chain; i < length; i += 2 * chain) {
        ok(OutlineJni.moveMember(open.instance(), open.handle(), links[i - 1], links[i], false));
      }
    }
    int bottom = links[length - 1];
    ok(OutlineJni.setMemberUDA(open.instance(), open.handle(), bottom, UDA));
    ok(OutlineJni.assignMemberAlias(open.instance(), open.handle(), bottom, "Default", ALIAS));
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
    ok(OutlineJni.findMemberQuery(open.handle(), ALIAS, "Default", true, true, paths));
    assertEquals(1, paths.size());
    List<String> path = paths.get(0).getNames();
    assertEquals(length + 1, path.size());
    assertEquals(name(length - 1), path.get(0));
    assertEquals(name(0), path.get(length - 1));
    assertEquals(DIMENSION, path.get(length));

    FindRequest request = new FindRequest();
    request.setText(UDA);
    request.setSearchUDAS(true);
    assertEquals(Collections.singletonList(name(length - 1)), found(open, request));
    assertEquals(length + 1, request.getMembersProcessed());

    List<MemberInfo> infos = new ArrayList<>();
    ok(OutlineJni.listFindMembers(open.handle(), DIMENSION, name(length - 1), false, null, infos));
    assertEquals(name(length - 2), infos.get(0).getParentName());
  }

  private void list(OpenOutline open) {
    // Each member object names its dimension, which takes a climb of its own: not from the bottom.
    int depth = Math.min(length - 1, 2000);
    List<DefaultMember> ancestors = new ArrayList<>();
    ok(OutlineJni.getMemberAncestors(open.instance(), open.handle(), name(depth), 0, ancestors));
    assertEquals(depth + 1, ancestors.size());
    assertEquals(name(depth - 1), ancestors.get(0).getName());
    assertEquals(DIMENSION, ancestors.get(depth).getName());

    List<String> udas = new ArrayList<>();
    ok(OutlineJni.getDimensionUDAS(open.instance(), open.handle(), DIMENSION, 0, udas));
    assertEquals(Collections.singletonList(UDA), udas);

    // Records count generations and levels in 16 bits.
    int most = Math.min(length + 1, Short.MAX_VALUE);
    List<DefinedGeneration> generations = new ArrayList<>();
    ok(OutlineJni.getAllGenerations(open.instance(), open.handle(), generations));
    List<DefinedLevel> levels = new ArrayList<>();
    ok(OutlineJni.getAllLevels(open.instance(), open.handle(), levels));
    assertTrue(generations.size() + " generations", generations.size() >= most);
    assertTrue(levels.size() + " levels", levels.size() >= most);
  }

  private void export(OpenOutline open) {
    Path file = Settings.newFolder().resolve("aliases");
    ok(OutlineJni.exportAliasTable(open.instance(), open.handle(), "Default", file.toString()));
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
    ok(OutlineJni.verifyOutlineEdit(open.instance(), store.session().context(), open.handle(),
        findings));
    // Only the generations that do not fit a record are complained about.
    assertEquals(Math.max(0, length + 1 - Short.MAX_VALUE), findings.size());
    for (VerifyFinding finding : findings) {
      assertTrue(finding.toString(), ((MemberVerifyError) finding).getExtendedPortion() != 0);
    }

    List<DefaultMember> copies = new ArrayList<>();
    assertEquals("a copy below itself", 1060013, OutlineJni.copyMember(open.instance(),
        open.handle(), name(length - 1), 0, name(0), 0, false, new CopyRequest(), copies));
    ok(OutlineJni.copyMember(open.instance(), open.handle(), name(length - 1), 0, name(length - 1),
        0, true, new CopyRequest(), copies));
    assertEquals(1, copies.size());
    int top = open.find(name(0));
    ok(OutlineJni.moveMember(open.instance(), open.handle(), create(open, 0, 0, "Other"), top,
        false));
    OutlineMemberProperties other = new OutlineMemberProperties();
    ok(OutlineJni.getMemberInfo(open.handle(), "Other", other));
    assertEquals(Math.min(length, Short.MAX_VALUE), other.getLevel());
    ok(OutlineJni.deleteMember(open.instance(), open.handle(), top));
    assertEquals(Collections.emptyList(), children(open, "Other"));
  }
}
