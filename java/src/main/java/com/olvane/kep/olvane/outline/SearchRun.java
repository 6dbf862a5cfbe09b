package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.jni.OutlineJni;
import com.olvane.kep.olvane.api.outline.FindRequest;
import com.olvane.kep.olvane.defs.outline.DefaultMember;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.stream.Stream;

/**
 * A search that is carried out batch by batch. The outline is free between them, and to cancel is
 * not to ask for the next one. An edit in between ends it with a {@link
 * java.util.ConcurrentModificationException}.
 */
public final class SearchRun {
  private final Access access;
  private final FindRequest request;
  private final Details details;
  /** When the first batch was searched; -1 before. */
  private long edits = -1;
  private boolean begun;

  SearchRun(Access access, Search search, Details details) {
    this.access = access;
    this.request = search.request();
    this.details = details;
  }

  /** {@return whether the whole outline, or dimension, has been searched} */
  public boolean isFinished() {
    return begun && request.getLastHandle() == 0;
  }

  /** {@return the number of members looked at so far} */
  public int membersSearched() {
    return request.getMembersProcessed();
  }

  /**
   * Searches one batch of members.
   *
   * @return the members found in it, which may be none before the search is finished; nothing
   *     once it is
   */
  public List<Member> next() {
    if (isFinished()) {
      return Collections.emptyList();
    }
    List<DefaultMember> found = new ArrayList<>();
    List<Member> members = new ArrayList<>();
    access.read("search " + access, (i, o) -> {
      edits = access.unchanged(edits);
      int status = OutlineJni.findRequest(i, o, request, found);
      if (status == Status.OK) {
        int[] handles = found.stream().mapToInt(DefaultMember::getHandle).toArray();
        members.addAll(Reading.members(access, "", handles, details).all());
      }
      return status;
    });
    begun = true;
    return members;
  }

  /** {@return the members still to be found, in outline order; searched as they are asked for} */
  public Stream<Member> stream() {
    return Streams.of(() -> isFinished() ? null : next()).flatMap(List::stream);
  }
}
