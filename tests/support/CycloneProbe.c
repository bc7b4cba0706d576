/*
  rv-cyclone-probe: a DDS peer of another make, Eclipse Cyclone DDS, on the
  attribute topics, for the tests that check that the instrument's
  participant and a foreign one understand each other.

    rv-cyclone-probe write ATTRIBUTE VALUE... [--xcdr2] [--timeout SECONDS]
        Waits until a reader of rv/attr/ATTRIBUTE matches, writes each VALUE
        as a TQMM_DDS::ATTR_LONG sample, and waits until the readers have
        acknowledged them. --xcdr2 sends the samples in the XCDR2 data
        representation although the writer offered XCDR1, as a careless
        peer would.
    rv-cyclone-probe read ATTRIBUTE EXPECTED [--timeout SECONDS]
        Reads rv/attr/ATTRIBUTE as TQMM_DDS::ATTR_LONG, printing every
        value, until EXPECTED arrives.

  Prints "matched" once a peer's reader or writer has matched, and "wrote N"
  or "value N" per sample. Exits 0 on success, 1 on a failure or when the
  time (10 s unless given) runs out first, 2 on a wrong command line.

  The domain is RV_DDS_DOMAIN's. Traffic stays on 127.0.0.1 without
  multicast whatever CYCLONEDDS_URI says, as the instrument's participant
  keeps it; Cyclone does not speak Fast DDS's shared memory, so the two
  meet on UDP.
*/
#include "TQMM_DDS.h"

#include <dds/dds.h>
#include <dds/ddsi/ddsi_serdata.h>

#include <stdarg.h>
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

/* Fast DDS sends its announcements to the well-known ports of the first
   participant indices on 127.0.0.1: an automatic index puts this
   participant on one of them. */
static const char* const localConfig =
    "<CycloneDDS><Domain id=\"any\">"
    "<General>"
    "<Interfaces><NetworkInterface address=\"127.0.0.1\"/></Interfaces>"
    "<AllowMulticast>false</AllowMulticast>"
    "</General>"
    "<Discovery>"
    "<ParticipantIndex>auto</ParticipantIndex>"
    "<Peers><Peer address=\"127.0.0.1\"/></Peers>"
    "</Discovery>"
    "</Domain></CycloneDDS>";

enum { ExitOk = 0, ExitFailed = 1, ExitUsage = 2 };

typedef struct Options
{
    bool write;
    const char* attribute;
    long* values;
    int valueCount;
    bool xcdr2;
    double timeoutSeconds;
} Options;

typedef struct Peer
{
    dds_entity_t participant;
    dds_entity_t topic;
    dds_time_t deadline;
} Peer;

static bool parseLong(const char* text, long* value)
{
    char* end = NULL;
    *value = strtol(text, &end, 10);
    return *text != '\0' && *end == '\0';
}

static bool parseOptions(int argc, char* argv[], Options* options)
{
    memset(options, 0, sizeof *options);
    options->timeoutSeconds = 10.0;
    if (argc < 4)
        return false;
    if (strcmp(argv[1], "write") == 0)
        options->write = true;
    else if (strcmp(argv[1], "read") != 0)
        return false;
    options->attribute = argv[2];
    options->values = calloc((size_t)argc, sizeof *options->values);
    for (int i = 3; i < argc; ++i) {
        if (strcmp(argv[i], "--xcdr2") == 0 && options->write) {
            options->xcdr2 = true;
        } else if (strcmp(argv[i], "--timeout") == 0 && i + 1 < argc) {
            char* end = NULL;
            options->timeoutSeconds = strtod(argv[++i], &end);
            if (*end != '\0' || options->timeoutSeconds <= 0.0)
                return false;
        } else if (!parseLong(argv[i], &options->values[options->valueCount++])) {
            return false;
        }
    }
    return options->write ? options->valueCount >= 1 : options->valueCount == 1;
}

static dds_domainid_t domainFromEnvironment(void)
{
    const char* text = getenv("RV_DDS_DOMAIN");
    long id = 0;
    if (text && *text && (!parseLong(text, &id) || id < 0 || id > 232)) {
        fprintf(stderr, "rv-cyclone-probe: RV_DDS_DOMAIN must be 0 to 232, not \"%s\"; using 0\n", text);
        id = 0;
    }
    return (dds_domainid_t)id;
}

static int fail(const char* what, dds_return_t code)
{
    fprintf(stderr, "rv-cyclone-probe: %s: %s\n", what, dds_strretcode(code));
    return ExitFailed;
}

/* Line by line, as it happens: the test reads while the probe runs. */
static void say(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    vprintf(format, arguments);
    va_end(arguments);
    fflush(stdout);
}

/* As the engine's writers and the widgets' readers: reliable, and a writer
   keeps its last value for a late reader, with a liveliness lease short
   enough for the widgets' readers. A reader that asks for volatile
   durability matches a writer that offers either. */
static dds_qos_t* topicQos(bool writer)
{
    dds_qos_t* qos = dds_create_qos();
    dds_qset_reliability(qos, DDS_RELIABILITY_RELIABLE, DDS_SECS(1));
    dds_qset_durability(qos, writer ? DDS_DURABILITY_TRANSIENT_LOCAL : DDS_DURABILITY_VOLATILE);
    dds_qset_history(qos, DDS_HISTORY_KEEP_LAST, writer ? 1 : 16);
    /* The widgets' readers watch liveliness with a one-second lease and
       match no writer that offers a longer one. */
    if (writer)
        dds_qset_liveliness(qos, DDS_LIVELINESS_AUTOMATIC, DDS_MSECS(500));
    return qos;
}

/* Sleeps until a status of the attached entity changes; false when the
   time is up first. */
static bool waitFor(dds_entity_t waitset, const Peer* peer)
{
    return dds_waitset_wait_until(waitset, NULL, 0, peer->deadline) > 0;
}

/* A sample in the XCDR2 representation, as serialized data: written by a
   writer that offers only that and taken back by a reader that takes only
   that, both in this participant. */
static struct ddsi_serdata* xcdr2Sample(const Peer* peer, const TQMM_DDS_ATTR_LONG* sample)
{
    const dds_data_representation_id_t xcdr2[] = {DDS_DATA_REPRESENTATION_XCDR2};
    dds_qos_t* qos = topicQos(false);
    dds_qset_data_representation(qos, 1, xcdr2);
    const dds_entity_t writer = dds_create_writer(peer->participant, peer->topic, qos, NULL);
    const dds_entity_t reader = dds_create_reader(peer->participant, peer->topic, qos, NULL);
    dds_delete_qos(qos);
    struct ddsi_serdata* serialized = NULL;
    dds_sample_info_t info;
    if (writer >= 0 && reader >= 0 && dds_write(writer, sample) == DDS_RETCODE_OK
        && dds_takecdr(reader, &serialized, 1, &info, 0) != 1)
        serialized = NULL;
    dds_delete(reader);
    dds_delete(writer);
    return serialized;
}

static dds_return_t writeOne(const Peer* peer, dds_entity_t writer, const TQMM_DDS_ATTR_LONG* sample, bool xcdr2)
{
    if (!xcdr2)
        return dds_write(writer, sample);
    /* Cyclone does not match a writer that offers only XCDR2 with a reader
       that names no representation, as Fast DDS's readers do (that means
       XCDR1): the XCDR2 bytes go out on the writer that offered XCDR1. */
    struct ddsi_serdata* serialized = xcdr2Sample(peer, sample);
    return serialized ? dds_writecdr(writer, serialized) : DDS_RETCODE_ERROR;
}

static int writeValues(const Peer* peer, const Options* options)
{
    dds_qos_t* qos = topicQos(true);
    const dds_entity_t writer = dds_create_writer(peer->participant, peer->topic, qos, NULL);
    dds_delete_qos(qos);
    if (writer < 0)
        return fail("cannot create the writer", writer);

    const dds_entity_t waitset = dds_create_waitset(peer->participant);
    dds_set_status_mask(writer, DDS_PUBLICATION_MATCHED_STATUS);
    dds_waitset_attach(waitset, writer, writer);
    dds_publication_matched_status_t matched = {0};
    while (matched.current_count == 0) {
        if (!waitFor(waitset, peer)) {
            fprintf(stderr, "rv-cyclone-probe: no reader of %s matched in time\n", options->attribute);
            return ExitFailed;
        }
        dds_get_publication_matched_status(writer, &matched);
    }
    say("matched\n");
    /* The reader may learn of this writer a moment after this writer learnt
       of it; a sample sent in between is lost to a volatile reader. */
    dds_sleepfor(DDS_MSECS(500));

    for (int i = 0; i < options->valueCount; ++i) {
        TQMM_DDS_ATTR_LONG sample;
        memset(&sample, 0, sizeof sample);
        sample.header.serial = (uint64_t)i + 1;
        sample.header.stampNs = dds_time();
        sample.value = (int32_t)options->values[i];
        const dds_return_t written = writeOne(peer, writer, &sample, options->xcdr2);
        if (written != DDS_RETCODE_OK)
            return fail("write failed", written);
        say("wrote %ld\n", options->values[i]);
        dds_sleepfor(DDS_MSECS(50));
    }
    const dds_duration_t left = peer->deadline - dds_time();
    const dds_return_t acked = dds_wait_for_acks(writer, left > 0 ? left : 0);
    return acked == DDS_RETCODE_OK ? ExitOk : fail("the samples were not all acknowledged", acked);
}

static int readUntilExpected(const Peer* peer, const Options* options)
{
    dds_qos_t* qos = topicQos(false);
    const dds_entity_t reader = dds_create_reader(peer->participant, peer->topic, qos, NULL);
    dds_delete_qos(qos);
    if (reader < 0)
        return fail("cannot create the reader", reader);

    const dds_entity_t waitset = dds_create_waitset(peer->participant);
    dds_set_status_mask(reader, DDS_SUBSCRIPTION_MATCHED_STATUS | DDS_DATA_AVAILABLE_STATUS);
    dds_waitset_attach(waitset, reader, reader);
    bool matched = false;
    while (waitFor(waitset, peer)) {
        /* Reading a status resets it, so that the waitset sleeps again. */
        dds_subscription_matched_status_t status;
        dds_get_subscription_matched_status(reader, &status);
        if (!matched && status.current_count > 0) {
            matched = true;
            say("matched\n");
        }
        enum { Batch = 16 };
        TQMM_DDS_ATTR_LONG samples[Batch];
        void* buffers[Batch];
        dds_sample_info_t infos[Batch];
        for (int i = 0; i < Batch; ++i)
            buffers[i] = &samples[i];
        dds_return_t count;
        while ((count = dds_take(reader, buffers, infos, Batch, Batch)) > 0) {
            for (int i = 0; i < count; ++i) {
                if (!infos[i].valid_data)
                    continue;
                say("value %d\n", (int)samples[i].value);
                if (samples[i].value == options->values[0])
                    return ExitOk;
            }
        }
    }
    fprintf(stderr, "rv-cyclone-probe: no sample of value %ld on %s in time\n", options->values[0], options->attribute);
    return ExitFailed;
}

static int run(const Options* options)
{
    const dds_domainid_t domainId = domainFromEnvironment();
    const dds_entity_t domain = dds_create_domain(domainId, localConfig);
    if (domain < 0)
        return fail("cannot create the domain", domain);

    int result = ExitFailed;
    Peer peer;
    peer.deadline = dds_time() + (dds_duration_t)(options->timeoutSeconds * 1e9);
    peer.participant = dds_create_participant(domainId, NULL, NULL);
    char topicName[256];
    snprintf(topicName, sizeof topicName, "rv/attr/%s", options->attribute);
    if (peer.participant < 0) {
        fail("cannot create the participant", peer.participant);
    } else if ((peer.topic = dds_create_topic(peer.participant, &TQMM_DDS_ATTR_LONG_desc, topicName, NULL, NULL)) < 0) {
        fail("cannot create the topic", peer.topic);
    } else {
        result = options->write ? writeValues(&peer, options) : readUntilExpected(&peer, options);
    }
    /* Takes every entity of the domain with it. */
    dds_delete(domain);
    return result;
}

int main(int argc, char* argv[])
{
    Options options;
    int result = ExitUsage;
    if (parseOptions(argc, argv, &options))
        result = run(&options);
    else
        fprintf(stderr, "usage: rv-cyclone-probe write ATTRIBUTE VALUE... [--xcdr2] [--timeout SECONDS]\n"
                        "       rv-cyclone-probe read ATTRIBUTE EXPECTED [--timeout SECONDS]\n");
    free(options.values);
    return result;
}
