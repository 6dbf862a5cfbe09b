/** Handles of the API and holders that native methods fill. */
package com.olvane.kep.olvane.api;
