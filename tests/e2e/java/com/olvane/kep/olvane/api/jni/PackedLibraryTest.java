package com.olvane.kep.olvane.api.jni;

import static org.hamcrest.CoreMatchers.containsString;
import static org.hamcrest.MatcherAssert.assertThat;
import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertTrue;
import static org.junit.Assert.fail;

import com.olvane.kep.olvane.e2e.Settings;
import java.io.IOException;
import java.lang.reflect.InvocationTargetException;
import java.net.MalformedURLException;
import java.net.URL;
import java.net.URLClassLoader;
import java.nio.ByteBuffer;
import java.nio.channels.FileChannel;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.nio.file.StandardOpenOption;
import java.nio.file.attribute.PosixFilePermissions;
import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.Future;
import org.junit.After;
import org.junit.Before;
import org.junit.Test;

/** The real libraries out of the real jar. */
public class PackedLibraryTest {
  private final String libraryPath = System.getProperty("java.library.path");
  private Path folder;

  @Before
  public void leaveOnlyThePackedLibrary() {
    folder = Settings.newFolder();
    System.setProperty("java.library.path", "");
    System.setProperty("kepotl.tmpdir", folder.toString());
  }

  @After
  public void restoreProperties() {
    System.setProperty("java.library.path", libraryPath);
    System.clearProperty("kepotl.tmpdir");
  }

  /** Loads the library in a class loader of its own and calls a native method; gives its place. */
  private static String loadApart() throws ReflectiveOperationException, MalformedURLException {
    // Left open: the classes stay in use.
    URLClassLoader loader =
        new URLClassLoader(new URL[] {Settings.jar().toUri().toURL()}, null);
    Class<?> natives = loader.loadClass(OutlineJni.class.getName());
    Class<?> outline = loader.loadClass("com.olvane.kep.olvane.api.OutlineHandle");
    assertEquals(0, natives.getMethod("getDimensions", outline, List.class).invoke(null, null, null));
    try {
      loader.loadClass(OutlineBulk.class.getName()).getMethod("run", ByteBuffer.class)
          .invoke(null, ByteBuffer.allocateDirect(OutlineBulk.REQUEST));
      fail("an empty request was carried out");
    } catch (InvocationTargetException e) {
      assertThat(e.getCause().getMessage(), containsString("no well-formed request"));
    }
    return loader.loadClass(NativeLibrary.class.getName()).getMethod("location").invoke(null)
        .toString();
  }

  @Test
  public void classLoadersThatExtractAtOnceAllWork() throws Exception {
    int loaders = 3; // the file itself, a copy, and a copy of another name
    ExecutorService threads = Executors.newFixedThreadPool(loaders);
    List<Future<String>> places = new ArrayList<>();
    for (int i = 0; i < loaders; i++) {
      places.add(threads.submit(PackedLibraryTest::loadApart));
    }
    Path place = Paths.get(places.get(0).get());
    for (Future<String> other : places) {
      assertEquals(place.toString(), other.get());
    }
    threads.shutdown();
    assertEquals(folder, place.getParent().getParent());
    assertEquals("rwx------",
        PosixFilePermissions.toString(Files.getPosixFilePermissions(place.getParent())));
    assertFalse("copies are cleared away",
        Files.exists(place.resolveSibling(place.getFileName() + ".tmp")));
  }

  private Path extract() throws IOException {
    String platform = LibrarySearch.platform("Linux", System.getProperty("os.arch"));
    return PackedLibrary.find(platform, NativeLibrary.class::getResourceAsStream)
        .extract(folder, "libkepotl.so");
  }

  @Test
  public void whatOthersLeftIsCheckedAndReplaced() throws IOException {
    Path file = extract();
    byte[] content = Files.readAllBytes(file);
    Path leftover = file.resolveSibling("libkepotl.so.tmp");
    Files.write(leftover, new byte[1]);
    Files.write(file, new byte[] {0x7f, 'E', 'L', 'F'}); // cut short
    assertEquals(file, extract());
    assertArrayEquals(content, Files.readAllBytes(file));
    assertFalse("leftovers of killed processes", Files.exists(leftover));

    Files.setPosixFilePermissions(
        file.getParent(), PosixFilePermissions.fromString("rwxrwxrwx"));
    assertRefused();
    Path elsewhere = file.getParent().resolveSibling("elsewhere");
    Files.move(file.getParent(), elsewhere);
    Files.setPosixFilePermissions(elsewhere, PosixFilePermissions.fromString("rwx------"));
    Files.createSymbolicLink(file.getParent(), elsewhere);
    assertRefused();
  }

  @Test
  public void foldersOfOtherVersionsGoWhenNobodyUsesThem() throws Exception {
    String user = Files.getAttribute(Paths.get("/proc/self"), "unix:uid").toString();
    Path unused = Files.createDirectory(folder.resolve("kepotl-" + user + "-0000000000000000"));
    Path used = Files.createDirectory(folder.resolve("kepotl-" + user + "-1111111111111111"));
    Path others = Files.createDirectory(folder.resolve("kepotl-x-2222222222222222"));
    for (Path other : new Path[] {unused, used, others}) {
      Files.write(other.resolve("libkepotl.so"), new byte[1]);
    }
    Path mark = Files.createFile(used.resolve("used"));
    try (FileChannel channel = FileChannel.open(mark, StandardOpenOption.READ)) {
      channel.lock(0, Long.MAX_VALUE, true);
      Path file = extract();
      assertFalse(Files.exists(unused));
      assertTrue(Files.exists(used.resolve("libkepotl.so")));
      assertTrue(Files.exists(others.resolve("libkepotl.so")));
      assertTrue(Files.exists(file));
    }
  }

  private void assertRefused() {
    try {
      fail("extracted to " + extract());
    } catch (IOException e) {
      assertThat(e.getMessage(), containsString("not a private folder of this user"));
    }
  }
}
