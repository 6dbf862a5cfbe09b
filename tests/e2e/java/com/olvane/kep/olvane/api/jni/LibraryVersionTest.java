package com.olvane.kep.olvane.api.jni;

import static org.hamcrest.CoreMatchers.containsString;
import static org.hamcrest.MatcherAssert.assertThat;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertNull;
import static org.junit.Assert.assertThrows;

import com.olvane.kep.olvane.e2e.Settings;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Arrays;
import org.junit.Before;
import org.junit.Test;

/** The version in a library file, and what becomes of a file that has another one or none. */
public class LibraryVersionTest {
  private static final byte[] OWNER = "kepotl\0\0".getBytes(StandardCharsets.US_ASCII);

  private byte[] library;
  private int note;
  private Path file;

  @Before
  public void readTheLibrary() throws IOException {
    NativeLibrary.load();
    library = Files.readAllBytes(NativeLibrary.location());
    note = 0;
    while (!Arrays.equals(Arrays.copyOfRange(library, note, note + OWNER.length), OWNER)) {
      note++;
    }
    file = Settings.newFolder().resolve("libkepotl.so");
  }

  private String refusal() throws IOException {
    Files.write(file, library);
    return assertThrows(UnsatisfiedLinkError.class,
        () -> LibraryVersion.check(file, NativeLibrary.version())).getMessage();
  }

  @Test
  public void theLibraryIsOfTheClassesVersion() throws IOException {
    assertEquals(NativeLibrary.version(), LibraryVersion.of(NativeLibrary.location()));
  }

  @Test
  public void anotherVersionIsRefusedWithBothNamed() throws IOException {
    library[note + OWNER.length] = '0';
    assertThat(refusal(), containsString("version 0" + NativeLibrary.version().substring(1)
        + ", but these classes are version " + NativeLibrary.version()));
  }

  @Test
  public void oneWithoutVersionIsStale() throws IOException {
    library[note] = 'x';
    assertThat(refusal(), containsString("a stale library without a version"));
    assertNull(LibraryVersion.of(file));
  }

  @Test
  public void aStaleOneOnThePathIsPassedOver() throws Exception {
    library[note + OWNER.length] = '0';
    Files.write(file, library);
    Process process = new ProcessBuilder(Settings.java("-Djava.library.path=" + file.getParent(),
        "-Dkepotl.tmpdir=" + Settings.newFolder(), LibraryVersionTest.class.getName()))
        .redirectError(ProcessBuilder.Redirect.INHERIT)
        .start();
    byte[] output = new byte[4096];
    int length = Math.max(0, process.getInputStream().read(output));
    assertEquals(0, process.waitFor());
    assertThat(new String(output, 0, length, StandardCharsets.UTF_8), containsString("/kepotl-"));
  }

  /** Prints where the library was found. */
  public static void main(String[] arguments) {
    NativeLibrary.load();
    System.out.print(NativeLibrary.location());
  }

  @Test
  public void whatIsNoWholeLibraryIsLeftToTheVirtualMachine() throws IOException {
    for (int length : new int[] {0, 3, 63, 64, 100}) {
      Files.write(file, Arrays.copyOf(library, length));
      assertThrows(IOException.class, () -> LibraryVersion.of(file));
      LibraryVersion.check(file, NativeLibrary.version());
    }
    // Tables and notes that point anywhere end in an error, not in a crash or a large block.
    for (int at = 28; at < 64; at++) {
      byte[] damaged = library.clone();
      damaged[at] ^= (byte) 0xff;
      Files.write(file, damaged);
      try {
        LibraryVersion.of(file);
      } catch (IOException e) {
        continue;
      }
    }
  }
}
