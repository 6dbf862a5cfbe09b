package com.olvane.kep.olvane.api.jni;

import static org.hamcrest.CoreMatchers.containsString;
import static org.hamcrest.CoreMatchers.not;
import static org.hamcrest.MatcherAssert.assertThat;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.fail;

import com.olvane.kep.olvane.e2e.Settings;
import java.io.ByteArrayInputStream;
import java.io.IOException;
import java.io.InputStream;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.ArrayList;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import org.junit.Before;
import org.junit.Test;

/** Where the library is looked for, in which order, and what is said when it is not found. */
public class LibrarySearchTest {
  private static final String FILE = "libkepotl.so";

  private final Map<String, String> properties = new HashMap<>();
  private final Map<String, byte[]> resources = new HashMap<>();
  private final List<Path> asked = new ArrayList<>();
  private String failure;
  private Path folder;

  @Before
  public void describePlatform() {
    folder = Settings.newFolder();
    properties.put("os.name", "Linux");
    properties.put("os.arch", System.getProperty("os.arch"));
    properties.put("java.io.tmpdir", folder.toString());
  }

  private Path search() {
    return newSearch().load();
  }

  private LibrarySearch newSearch() {
    return new LibrarySearch(properties::get, this::resource, file -> {
      asked.add(file);
      if (failure != null) {
        throw new UnsatisfiedLinkError(file + ": " + file + ": " + failure);
      }
    });
  }

  private InputStream resource(String name) {
    byte[] content = resources.get(name);
    return content == null ? null : new ByteArrayInputStream(content);
  }

  private String message() {
    try {
      fail("loaded " + search());
      return null;
    } catch (UnsatisfiedLinkError e) {
      return e.getMessage();
    }
  }

  private static void assertInOrder(String text, String... parts) {
    int from = 0;
    for (String part : parts) {
      int at = text.indexOf(part, from);
      if (at < 0) {
        fail("no \"" + part + "\" in its place in:\n" + text);
      }
      from = at + part.length();
    }
  }

  private Path place(String name) throws IOException {
    Path place = Files.createDirectory(folder.resolve(name));
    return Files.createFile(place.resolve(FILE));
  }

  @Test
  public void platformsAreNamedLikeDebianNamesThem() {
    assertEquals("linux-amd64", LibrarySearch.platform("Linux", "amd64"));
    assertEquals("linux-amd64", LibrarySearch.platform("Linux", "x86_64"));
    for (String arch : new String[] {"x86", "i386", "i486", "i586", "i686"}) {
      assertEquals("linux-i386", LibrarySearch.platform("Linux", arch));
    }
    assertEquals("mac-os-x-aarch64", LibrarySearch.platform("Mac OS X", "aarch64"));
  }

  @Test
  public void explicitFileComesFirstAndIsTheOnlyOneTried() throws IOException {
    Path file = place("explicit");
    properties.put("kepotl.library", file.toString());
    properties.put("java.library.path", place("path").getParent().toString());
    assertEquals(file, search());
    Files.delete(file);
    String message = message();
    assertInOrder(message, "kepotl.library: " + file + ": no such file", "To cure this", FILE);
    assertThat(message, not(containsString("java.library.path:")));
  }

  @Test
  public void foldersOfTheLibraryPathAreTriedInOrder() throws IOException {
    Path second = place("second");
    Path empty = Files.createDirectory(folder.resolve("empty"));
    properties.put("java.library.path", empty + ":" + second.getParent());
    assertEquals(second, search());
  }

  @Test
  public void messageTellsEverythingThatWasTried() throws IOException {
    assertInOrder(message(), FILE + " could not be loaded", "kepotl.library: not set",
        "java.library.path: empty", "packed in the jar for linux-", ": none", "To cure this");
    Path broken = place("broken");
    properties.put("java.library.path", folder + ":" + broken.getParent());
    failure = "file too short";
    assertInOrder(message(), "kepotl.library: not set", broken + ": file too short",
        "no " + FILE + " in " + folder, "packed in the jar");
  }

  @Test
  public void failuresOfTheSystemComeWithACure() throws IOException {
    properties.put("kepotl.library", place("explicit").toString());
    String[][] cures = {
      {"wrong ELF class: ELFCLASS32", "of the same width"},
      {"failed to map segment from shared object", "noexec"},
      {"version `GLIBC_2.99' not found", "build it on this one"},
      {"libolv.so: cannot open shared object file: No such file", "LD_LIBRARY_PATH"},
      {"already loaded in another classloader", "a class loader that both users share"},
    };
    for (String[] cure : cures) {
      failure = cure[0];
      assertInOrder(message(), cure[0], cure[1]);
    }
  }

  @Test
  public void theOtherLibraryIsLookedForBesideTheFirst() throws IOException {
    Path file = place("explicit");
    properties.put("kepotl.library", file.toString());
    LibrarySearch search = newSearch();
    Path found = search.load();
    Path beside = found.resolveSibling("libkepotl-bulk.so");
    Files.write(beside, new byte[0]);
    search.loadBeside(found, "kepotl-bulk");
    Files.delete(beside);
    failure = "cannot open shared object file";
    try {
      search.loadBeside(found, "kepotl-bulk");
      fail();
    } catch (UnsatisfiedLinkError e) {
      assertInOrder(e.getMessage(), "libkepotl-bulk.so could not be loaded", "beside " + found,
          beside + ": no such file", "To cure this");
    }
  }

  @Test
  public void theSystemsOwnRefusalsArrive() throws IOException {
    Path real = folder.resolve(FILE);
    Path stored = Paths.get(System.getProperty("java.library.path")).resolve(FILE);
    byte[] content = Files.readAllBytes(stored);
    content[4] = (byte) (3 - content[4]); // the width: 1 or 2
    Files.write(real, content);
    assertThat(loadFailure(real), containsString("wrong ELF class"));
    Files.write(real, "no library".getBytes(StandardCharsets.UTF_8));
    assertThat(loadFailure(real), containsString(real.toString()));
  }

  private String loadFailure(Path file) {
    properties.put("kepotl.library", file.toString());
    try {
      new LibrarySearch(properties::get, this::resource, path -> System.load(path.toString()))
          .load();
    } catch (UnsatisfiedLinkError e) {
      return e.getMessage();
    }
    return "loaded";
  }

  @Test
  public void foldersThatCannotTakeThePackedLibraryAreNamedWithACure() throws IOException {
    pack("content");
    properties.put("kepotl.tmpdir", folder.resolve("missing").toString());
    assertInOrder(message(), "packed in the jar", "cannot be extracted below",
        folder.resolve("missing").toString(), "Set -Dkepotl.tmpdir=FOLDER");
    properties.put("kepotl.tmpdir", "");
    assertEquals("kepotl.tmpdir counts when it is set", folder, search().getParent().getParent());
    resources.put(packed(FILE), new byte[] {1});
    Files.delete(asked.get(0));
    assertInOrder(message(), "packed in the jar", "the jar is damaged: " + FILE);
  }

  private static String packed(String name) {
    String arch = System.getProperty("os.arch");
    return "/native/" + LibrarySearch.platform("Linux", arch) + "/" + name;
  }

  private void pack(String content) {
    byte[] bytes = content.getBytes(StandardCharsets.UTF_8);
    resources.put(packed(FILE), bytes);
    resources.put(packed(PackedLibrary.INDEX), (
        "ed7002b439e9ac845f22357d822bac1444730fbdb6016d3ec9432297b9ec9f73  " + FILE + "\n")
        .getBytes(StandardCharsets.UTF_8));
  }

  /** As newer virtual machines do with --illegal-native-access=deny, and names that no file has. */
  @Test
  public void otherRefusalsAreTheSameError() throws IOException {
    properties.put("kepotl.library", Files.createFile(folder.resolve(FILE)).toString());
    LibrarySearch search = new LibrarySearch(properties::get, this::resource, file -> {
      throw new SecurityException("IllegalCallerException: native access is not enabled");
    });
    for (int time = 0; time < 2; time++) {
      try {
        fail("loaded " + search.load());
      } catch (UnsatisfiedLinkError e) {
        assertThat(e.getMessage(), containsString("--enable-native-access=ALL-UNNAMED"));
      }
    }
    properties.put("kepotl.library", "a\0b");
    assertThat(message(), containsString("InvalidPathException"));
  }
}
